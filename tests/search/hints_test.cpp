// What probe --hints says, fact by fact.
#include "search/hints.h"

#include <doctest/doctest.h>

#include "search/cabinet_listing.h"
#include "support/cabinet_writer.h"
#include "support/machine_here.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

using Lines = std::vector<std::string>;

// The lines about one required file with these missing entries.
Lines HintsIn(Simulator& simulator, const RequiredFile& required) {
  const Machine services = simulator.Services();
  const HintFinder finder(services, simulator.FSPath(),
                          FoldersOf(simulator.FSPath(), simulator.AppFolder()));
  Lines lines;
  for (const Hint& hint : finder.HintsFor(required)) lines.push_back(finder.LineOf(hint));
  return lines;
}

TEST_CASE("A file that would satisfy a panel is found wherever it lies in the simulator") {
  Simulator simulator;
  Put(simulator.App() / "SpareGauges/Two Words.gau", "");
  Put(simulator.App() / "SpareGauges/abc.cab", MakeCabinet({{"Speed.xml"}}));
  CHECK(HintsIn(simulator, {"two words", {"two words!x"}}) ==
        Lines{R"(lies in SpareGauges: panelkit-console restore "Two Words.gau")"});
  CHECK(HintsIn(simulator, {"abc", {"abc!speed", "abc!clock"}}) ==
        Lines{"lies in SpareGauges: panelkit-console restore abc.cab"});
  CHECK(HintsIn(simulator, {"abc", {"abc!clock"}}).empty());  // The cabinet has no such entry.
  simulator.AddGauge("abc.cab");
  CHECK(HintsIn(simulator, {"abc", {"abc!speed"}}).front() ==
        "SpareGauges has abc.cab, but Gauges has another file of that name");

  Put(simulator.Fs() / "Aircraft/Dart/Panel/Dart_Fuel.gau", "");
  Put(simulator.Fs() / "Gauges/new/Dart_Fuel.cab", MakeCabinet({{"a.xml"}}));
  CHECK(HintsIn(simulator, {"dart_fuel", {"dart_fuel!a", "dart_fuel!b"}}) ==
        Lines{R"(lies elsewhere in the simulator: panelkit-console find ")" + simulator.FSPath() +
                  R"(\Aircraft\Dart\Panel\Dart_Fuel.gau" --install)",
              R"(lies elsewhere in the simulator: panelkit-console find ")" + simulator.FSPath() +
                  R"(\Gauges\new\Dart_Fuel.cab" --install)"});
  simulator.AddGauge("Dart_Oil.gau");
  Hide(simulator.Fs() / "Gauges/Dart_Oil.gau");
  CHECK(HintsIn(simulator, {"Dart_Oil", {"Dart_Oil"}}) ==
        Lines{"Gauges has Dart_Oil.gau, but it is hidden"});
}

TEST_CASE("What stands in the place of a required file is told with what it lacks") {
  Simulator simulator;
  const auto put = [&](const char* name, const std::string& bytes) {
    Put(simulator.Fs() / "Gauges" / name, bytes);
  };
  put("Efis.cab", MakeCabinet({{"pfd\\Speed.xml"}, {"Alt.XML"}, {"Map.bmp"}}));
  CHECK(HintsIn(simulator, {"efis", {"efis!Sped", "efis!alt", "efis!q"}}) ==
        Lines{R"(Gauges has Efis.cab, which lacks Sped; its nearest entry is pfd\Speed.xml)",
              "Gauges has Efis.cab, whose entry Alt.XML counts only with a lower-case .xml",
              "Gauges has Efis.cab, which lacks q"});
  put("Bezels.cab", MakeCabinet({{"Frame.bmp"}}));
  CHECK(HintsIn(simulator, {"bezels", {"bezels"}}) ==
        Lines{"Gauges has Bezels.cab, which holds no gauge"});
  put("None.cab", "");
  put("Library.cab", "MZ and more");
  CHECK(HintsIn(simulator, {"none", {"none!x"}}) ==
        Lines{"Gauges has None.cab, which is no cabinet, or damaged before its first entry"});
  CHECK(HintsIn(simulator, {"library", {"library!x"}}) ==
        Lines{"Gauges has Library.cab, which is no cabinet but a library, as .gau files are"});
  put("Radio.gau.zip", "");
  CHECK(HintsIn(simulator, {"radio", {"radio"}}) ==
        Lines{"Gauges has Radio.gau.zip, which is neither .gau nor .cab: rename it to radio.gau"});
}

TEST_CASE("A renamed gauge and an ending that does not belong in a panel are told") {
  Simulator simulator;
  for (const char* name : {"Copy of Speed.gau", "Alt.GAU.bak"}) simulator.AddGauge(name);
  CHECK(HintsIn(simulator, {"speed", {"speed!x"}}) ==
        Lines{"Gauges\\Copy of Speed.gau is Speed.gau under another name: rename it to Speed.gau"});
  CHECK(HintsIn(simulator, {"alt", {"alt"}}) ==
        Lines{"Gauges\\Alt.GAU.bak is Alt.GAU under another name: rename it to Alt.GAU"});
  CHECK(HintsIn(simulator, {"Missing.gau", {"Missing.gau!x"}}) ==
        Lines{"a panel names files without their ending: write Missing for Missing.gau there"});
}

TEST_CASE("a damaged cabinet is told with its last whole entry") {
  Simulator simulator;
  const std::string cabinet = MakeCabinet({{"Speed.xml"}, {"Alt.XML"}, {"Map.bmp"}});
  Put(simulator.Fs() / "Gauges/Cut.cab", cabinet.substr(0, cabinet.find("Map")));
  CHECK(HintsIn(simulator, {"cut", {"cut!Map"}}) ==
        Lines{"Gauges has Cut.cab, which is damaged behind its entry 2, Alt.XML"});
}

TEST_CASE("a cabinet of more gauges than a table holds is listed to its end") {
  Simulator simulator;
  const std::vector<CabinetEntry> entries(32768, {"dial.xml"});
  Put(simulator.Fs() / "many.cab", MakeCabinet(entries));
  const auto listing =
      ListCabinet(simulator.Services(), simulator.FSPath() + "\\many.cab", "many.cab");
  CHECK(listing.entries.size() == entries.size());
  CHECK(listing.rows.Overflowed());
  CHECK_FALSE(listing.fault);
}

TEST_CASE("Names that are nearly the required one are told with the difference, the least first") {
  Simulator simulator;
  for (const char* name : {"Turn-Coord 2.gau", "Turn_Coord_33.gau", "Turn_Coord_.gau"}) {
    simulator.AddGauge(name);
  }
  Put(simulator.Fs() / FromUtf8("Aircraft/x/Étoile_Dépresion.gau"), "");
  CHECK(HintsIn(simulator, {"TURN_COORD_2", {"TURN_COORD_2!x"}}) ==
        Lines{"Gauges\\Turn-Coord 2.gau differs from the required name in blanks, \"_\" and \"-\" "
              "alone",
              "Gauges\\Turn_Coord_.gau differs from the required name in one letter"});
  // Numbers count up: 33 is no misspelling of 34.
  CHECK(HintsIn(simulator, {"Turn_Coord_34", {"Turn_Coord_34"}}) ==
        Lines{"Gauges\\Turn_Coord_.gau differs from the required name in two letters"});
  CHECK(HintsIn(simulator, {"étoile_dèpression", {"étoile_dèpression"}}) ==
        Lines{"Aircraft\\x\\Étoile_Dépresion.gau differs from the required name in two letters"});
  Put(simulator.Fs() / FromUtf8("Aircraft/x/éà.gau"), "");
  CHECK(HintsIn(simulator, {"éè", {"éè"}}).empty());  // Half of its letters, whatever their bytes.
  simulator.AddGauge("Fuel.gau");
  CHECK(HintsIn(simulator, {"Fool", {"Fool"}}).empty());  // Half of it is another word.
}

}  // namespace
}  // namespace panelkit::test
