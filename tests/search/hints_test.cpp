// What probe --hints says, fact by fact.
#include "search/hints.h"

#include <doctest/doctest.h>

#include "search/cabinet_listing.h"
#include "search/deeds.h"
#include "support/cabinet_writer.h"
#include "support/machine_here.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

using Lines = std::vector<std::string>;

// The lines about one required file with these missing entries, the simulator's folder as {FS};
// panels name `others`, too.
Lines HintsIn(Simulator& simulator, const RequiredFile& required, const Lines& others = {},
              const CommandStyle& style = {}) {
  const Machine services = simulator.Services();
  GaugeReport report;
  for (const std::string& other : others) report.named[other];
  const HintFinder finder(services, simulator.FSPath(),
                          FoldersOf(simulator.FSPath(), simulator.AppFolder()), report, {});
  Lines lines;
  for (const Hint& hint : finder.HintsFor(required)) {
    lines.push_back(LineOf(hint, style));
    const std::size_t place = lines.back().find(simulator.FSPath());
    if (place != std::string::npos) {
      lines.back().replace(place, simulator.FSPath().size(), "{FS}");
    }
  }
  return lines;
}

constexpr std::string_view kGaugeFile{
    "MZ                                                          \x40\0\0\0PE\0\0"
    "\x4c\1                \x02\x21",
    88};

TEST_CASE("A file that would satisfy a panel is found wherever it lies in the simulator") {
  Simulator simulator;
  Put(simulator.App() / "SpareGauges/Two Words.gau", "");
  Put(simulator.App() / "SpareGauges/abc.cab", MakeCabinet({{"Speed.xml"}}));
  CHECK(HintsIn(simulator, {"two words", {"two words!x"}}) ==
        Lines{R"(lies in SpareGauges: panelkit-console restore "Two Words.gau")"});
  CHECK(HintsIn(simulator, {"words", {"words"}}).front() ==
        "SpareGauges has Two Words.gau, whose name holds this one: "
        R"(panelkit-console restore "Two Words.gau")");
  CHECK(HintsIn(simulator, {"abc", {"abc!speed", "abc!clock"}}) ==
        Lines{"lies in SpareGauges: panelkit-console restore abc.cab"});
  CHECK(HintsIn(simulator, {"abc", {"abc!clock"}}).empty());  // The cabinet has no such entry.
  simulator.AddGauge("abc.cab");
  CHECK(HintsIn(simulator, {"abc", {"abc!speed"}}).front() ==
        "lies in SpareGauges: move Gauges\\abc.cab away, then panelkit-console restore abc.cab");

  Put(simulator.Fs() / "Aircraft/Dart/Panel/Dart_Fuel.gau", "");
  Put(simulator.Fs() / "Gauges/new/Dart_Fuel.cab", MakeCabinet({{"a.xml"}}));
  CHECK(HintsIn(simulator, {"dart_fuel", {"dart_fuel!a", "dart_fuel!b"}}) ==
        Lines{"lies elsewhere in the simulator: panelkit-console find "
              R"({FS}\Aircraft\Dart\Panel\Dart_Fuel.gau --install)",
              "lies elsewhere in the simulator: panelkit-console find "
              R"({FS}\Gauges\new\Dart_Fuel.cab --install)"});
  simulator.AddGauge("Dart_Oil.gau");
  Hide(simulator.Fs() / "Gauges/Dart_Oil.gau");
  CHECK(
      HintsIn(simulator, {"Dart_Oil", {"Dart_Oil"}}) ==
      Lines{R"(Gauges has Dart_Oil.gau, but it is hidden: attrib -h -s {FS}\Gauges\Dart_Oil.gau)"});
}

TEST_CASE("a damaged cabinet is told with its last whole entry") {
  Simulator simulator;
  const std::string cabinet = MakeCabinet({{"Speed.xml"}, {"Alt.XML"}, {"Map.bmp"}});
  Put(simulator.Fs() / "Gauges/Cut.cab", std::string_view(cabinet).substr(0, cabinet.find("Map")));
  CHECK(HintsIn(simulator, {"cut", {"cut!Map"}}) ==
        Lines{"Gauges has Cut.cab, which is damaged behind its entry 2, Alt.XML: move "
              "Gauges\\Cut.cab away, then panelkit-console find FOLDER --install"});
}

TEST_CASE("What stands in the place of a required file is told with what it lacks") {
  Simulator simulator;
  const auto put = [&](const char* name, std::string_view bytes) {
    Put(simulator.Fs() / "Gauges" / name, bytes);
  };
  const auto look_for = [](const std::string& name) {
    return "move Gauges\\" + name + " away, then panelkit-console find FOLDER --install";
  };
  put("Efis.cab", MakeCabinet({{"pfd\\Speed.xml"}, {"Alt.XML"}, {"Map.bmp"}}));
  CHECK(
      HintsIn(simulator, {"efis", {"efis!Sped", "efis!alt", "efis!q"}}) ==
      Lines{R"(Gauges has Efis.cab, which lacks Sped; its nearest entry is pfd\Speed.xml: )" +
                look_for("Efis.cab"),
            "Gauges has Efis.cab, whose entry Alt.XML counts only with a lower-case .xml: pack it "
            "anew with Alt.xml",
            "Gauges has Efis.cab, which lacks q: " + look_for("Efis.cab")});
  put("Bezels.cab", MakeCabinet({{"Frame.bmp"}}));
  CHECK(HintsIn(simulator, {"bezels", {"bezels"}}) ==
        Lines{"Gauges has Bezels.cab, which holds no gauge: " + look_for("Bezels.cab")});
  put("Page.cab", "<html>");
  put("Library.cab", kGaugeFile);
  CHECK(HintsIn(simulator, {"page", {"page!x"}}) ==
        Lines{"Gauges has Page.cab; it is a web page, and no cabinet: " + look_for("Page.cab")});
  CHECK(
      HintsIn(simulator, {"library", {"library!x"}}) ==
      Lines{"Gauges has Library.cab; it is no cabinet but a library, as gauge files are: rename it "
            "to library.gau"});
  put("Radio.dll", kGaugeFile);
  put("Radio.gau.zip", "");
  put("Radio.bmp", "BM");
  put("Bare", MakeCabinet({{"x.xml"}}));
  CHECK(HintsIn(simulator, {"radio", {"radio"}}) ==
        Lines{"Gauges has Radio.dll, which is neither .gau nor .cab: rename it to radio.gau",
              "Gauges has Radio.gau.zip, which is neither .gau nor .cab: panelkit-console find "
              R"({FS}\Gauges\Radio.gau.zip --install)"});
  CHECK(HintsIn(simulator, {"bare", {"bare!x"}}) ==
        Lines{"Gauges has Bare, which is neither .gau nor .cab: rename it to bare.cab"});
}

TEST_CASE("Gauges under other names and an ending that does not belong in a panel are told") {
  Simulator simulator;
  for (const char* name : {"Copy of Speed.gau", "Alt.GAU.bak"}) simulator.AddGauge(name);
  Put(simulator.Fs() / "Aircraft/Dart/Vsi (1).gau", "");
  CHECK(HintsIn(simulator, {"speed", {"speed!x"}}) ==
        Lines{"Gauges\\Copy of Speed.gau is Speed.gau under another name: rename it to Speed.gau"});
  CHECK(HintsIn(simulator, {"alt", {"alt"}}) ==
        Lines{"Gauges\\Alt.GAU.bak is Alt.GAU under another name: rename it to Alt.GAU"});
  CHECK(HintsIn(simulator, {"vsi", {"vsi!x"}}) ==
        Lines{R"(Aircraft\Dart\Vsi (1).gau is Vsi.gau under another name: panelkit-console find )"
              R"("{FS}\Aircraft\Dart\Vsi (1).gau" --install)"});
  // Each hint comes once, even if the disk spells the folder in other case.
  std::filesystem::rename(simulator.Fs() / "Gauges", simulator.Fs() / "GAUGES");
  Put(simulator.Fs() / "GAUGES/Spied.gau", "");
  CHECK(HintsIn(simulator, {"speed", {"speed!x"}}) ==
        Lines{"Gauges\\Copy of Speed.gau is Speed.gau under another name: rename it to Speed.gau",
              R"(Gauges\Spied.gau differs from the required name in one letter: panelkit-console )"
              R"(find {FS}\Gauges\Spied.gau --install --as speed)"});
  CHECK(HintsIn(simulator, {"Missing.gau", {"Missing.gau!x"}}) ==
        Lines{"a panel names files without their ending: write Missing in the panel"});
  Put(simulator.Fs() / "Gauges/tcas2.cab", MakeCabinet({{"Show.xml"}, {"Set.xml"}, {"a.bmp"}}));
  const RequiredFile tcas{"tcas", {"tcas!set", "tcas!show"}};
  CHECK(HintsIn(simulator, tcas).front() ==
        "Gauges\\tcas2.cab holds exactly the gauges that are missing, under another name: "
        R"(panelkit-console find {FS}\Gauges\tcas2.cab --install)");
  CHECK(HintsIn(simulator, tcas, {"TCAS2!show"}).empty());  // It is somebody's own.
  CHECK(HintsIn(simulator, {"other", {"other!set"}}).empty());
}

TEST_CASE("Commands are quoted for the user's shell and choose the same simulator") {
  CHECK(AsArgument("a.gau", true) == "a.gau");
  CHECK(AsArgument(R"(C:\a.gau)", false) == R"(C:\a.gau)");
  CHECK(AsArgument(R"(C:\a.gau)", true) == R"("C:\a.gau")");
  CHECK(AsArgument(R"(it's $5)", true) == R"('it'\''s $5')");
  CHECK(AsArgument(R"(it's $5)", false) == R"("it's $5")");
  CHECK(AsArgument(R"(\\?\unix\x)", true) == R"('\\?\unix\x')");
  const CommandStyle style{"panelkit-console --simulator /fs", "~/Downloads", true};
  CHECK(
      TextOf({DeedKind::LookFor, {}, {}, "a.cab"}, style) ==
      "move Gauges\\a.cab away, then panelkit-console --simulator /fs find ~/Downloads --install");
  CHECK(TextOf({DeedKind::Unhide, R"(C:\a)"}, style) == R"(wine attrib -h -s "C:\a")");
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

TEST_CASE("The three names nearest to the required one are told, but none that a panel names") {
  Simulator simulator;
  for (const char* name : {"Turn-Coord 2.gau", "Turn_Coord_33.gau", "Turn_Coord_.gau"}) {
    simulator.AddGauge(name);
  }
  Put(simulator.Fs() / FromUtf8("Aircraft/x/Étoile_Dépresion.gau"), "");
  const auto near = [](const std::string& file, const std::string& difference,
                       const std::string& name) {
    return file + " differs from the required name " + difference +
           ": panelkit-console find \"{FS}\\" + file + "\" --install --as " + name;
  };
  const auto unquoted = [](std::string line) {
    std::erase(line, '"');
    return line;
  };
  const Lines lines = HintsIn(simulator, {"TURN_COORD_2", {"TURN_COORD_2!x"}});
  CHECK(lines ==
        Lines{near("Gauges\\Turn-Coord 2.gau", R"(in blanks, "_" and "-" alone)", "TURN_COORD_2"),
              unquoted(near("Gauges\\Turn_Coord_.gau", "in one letter", "TURN_COORD_2"))});
  CHECK(HintsIn(simulator, {"TURN_COORD_2", {"TURN_COORD_2!x"}}, {"turn-coord 2!y"}) ==
        Lines{lines[1]});
  // Numbers count up: 33 is no misspelling of 34.
  CHECK(HintsIn(simulator, {"Turn_Coord_34", {"Turn_Coord_34"}}) ==
        Lines{unquoted(near("Gauges\\Turn_Coord_.gau", "in two letters", "Turn_Coord_34"))});
  CHECK(HintsIn(simulator, {"étoile_dèpression", {"étoile_dèpression"}}) ==
        Lines{unquoted(
            near("Aircraft\\x\\Étoile_Dépresion.gau", "in two letters", "étoile_dèpression"))});
  Put(simulator.Fs() / FromUtf8("Aircraft/x/éà.gau"), "");
  CHECK(HintsIn(simulator, {"éè", {"éè"}}).empty());  // Half of its letters, whatever their bytes.
  simulator.AddGauge("Fuel.gau");
  CHECK(HintsIn(simulator, {"Fool", {"Fool"}}).empty());  // Half of it is another word.
  for (const char* name : {"Gearlever.gau", "Gear_Levers.gau", "Gear-Lever.gau", "GearLever.cab",
                           "Gear_Lover.gau", "GearLever_.gau"}) {
    Put(simulator.Fs() / "Gauges" / name, MakeCabinet({{"other.xml"}}));
  }
  // Four in separators alone; a cabinet without the gauge would not help.
  CHECK(HintsIn(simulator, {"Gear_Lever", {"Gear_Lever!x"}}).size() == 3);
  CHECK(HintsIn(simulator, {"Gear_Lever", {"Gear_Lever!x"}}).front().starts_with("Gauges\\Gear-L"));
}

}  // namespace
}  // namespace panelkit::test
