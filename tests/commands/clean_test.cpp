// Clean Gauges and restore over files on disk.
#include <doctest/doctest.h>

#include "commands/gauge_mover.h"
#include "commands/report_text.h"
#include "support/cabinet_writer.h"
#include "support/simulator.h"

namespace fs = std::filesystem;

namespace panelkit::test {
namespace {

GaugeFolders Folders(Simulator& simulator) {
  return FoldersOf(simulator.FSPath(), simulator.AppFolder());
}

TEST_CASE("unneeded gauges move to the archive, needed ones stay, and two runs finish the work") {
  Simulator simulator;
  simulator.AddAircraft("Alpha",
                        "[Window Titles]\nWindow00=W\n\ngauge00=needed,1\ngauge01=Pack!dial,1\n");
  for (const char* file : {"needed.gau", "ABC.GAU", "xabcy.gau", "twin.gau"}) {
    simulator.AddGauge(file);
  }
  const auto gauges = simulator.Fs() / "Gauges";
  Put(gauges / "pack.cab", MakeCabinet({{"dial.xml", "d"}, {"lamp.xml", "l"}}));
  Put(gauges / "Spare.CAB", MakeCabinet({{"one.xml", "1"}, {"two.xml", "2"}}));
  Put(gauges / "twin.cab", MakeCabinet({{"t.xml", "t"}}));
  Put(gauges / "art.cab", MakeCabinet({{"a.bmp", "b"}}));
  fs::permissions(gauges / "xabcy.gau", fs::perms::owner_read);
  Put(simulator.App() / "SpareGauges" / "XABCY.gau", "an older copy");
  fs::permissions(simulator.App() / "SpareGauges" / "XABCY.gau", fs::perms::owner_read);
  Put(simulator.App() / "SpareGauges" / "panelkit.moving", "half a gauge");
  fs::permissions(simulator.App() / "SpareGauges" / "panelkit.moving", fs::perms::owner_read);
  const auto stamp = fs::last_write_time(gauges / "ABC.GAU");

  Program program(simulator);
  program.Click("menRemove");
  CHECK(program.Status() == "Done");
  CHECK(Get(simulator.App() / "GAUGES.HTM") ==
        Golden("clean.htm", simulator.AppFolder(), simulator.FSPath()));
  CHECK(Tree(gauges) == "art.cab\nneeded.gau\npack.cab\ntwin.cab\n");
  CHECK(Tree(simulator.App() / "SpareGauges") == "ABC.gau\nspare.cab\ntwin.gau\nxabcy.gau\n");
  CHECK(Get(simulator.App() / "SpareGauges" / "xabcy.gau") == "the gauge xabcy.gau");
  CHECK(fs::last_write_time(simulator.App() / "SpareGauges" / "ABC.gau") == stamp);
  CHECK(ReportText(program.form.ReportHtml) ==
        "4 FILES, CONTAINING 6 GAUGES WERE REMOVED FROM FOLDER:\n    " + simulator.FSPath() +
            "\\Gauges\\\nAND ARCHIVED IN FOLDER:\n    " + simulator.AppFolder() +
            "\\SpareGauges\\\nRemoved Files:\n    ABC\n    Spare!one\n    Spare!two\n    twin\n"
            "    twin!t\n    xabcy\n");

  program.Click("menRemove");
  CHECK(Tree(gauges) == "art.cab\nneeded.gau\npack.cab\n");

  simulator.AddGauge("twin.gau");
  Files& files = simulator.Services().files;
  auto outcome = RestoreGauges(files, Folders(simulator), {"XABCY", "twin.gau", "none", "..\\x"});
  CHECK(outcome.restored == std::vector<std::string>{"xabcy.gau"});
  CHECK(outcome.already_there == std::vector<std::string>{"twin.gau"});
  CHECK(outcome.failed == std::vector<std::string>{"none", "..\\x"});
  outcome = RestoreGauges(files, Folders(simulator), {kEveryGauge});
  CHECK(outcome.failed.empty());
  CHECK(Tree(simulator.App() / "SpareGauges") == "twin.gau\n");
  CHECK(Tree(gauges) ==
        "ABC.gau\nart.cab\nneeded.gau\npack.cab\nspare.cab\ntwin.cab\ntwin.gau\nxabcy.gau\n");
}

TEST_CASE("a gauge whose copy fails stays in Gauges, whole, and the user is told") {
  Simulator simulator;
  simulator.AddGauge("a.gau");
  simulator.AddGauge("b.gau");
  SUBCASE("a plain file stands where the archive should be") {
    Put(simulator.App() / "SpareGauges", "in the way");
    Program program(simulator);
    program.Click("menRemove");
    CHECK(program.Status() == "Done - files that stayed in Gauges: 2");
    CHECK(Tree(simulator.Fs()) == "Gauges/a.gau\nGauges/b.gau\n");
  }
  SUBCASE("a folder stands where the copy should be") {
    fs::create_directories(simulator.App() / "SpareGauges" / "a.gau");
    Program program(simulator);
    program.Click("menRemove");
    CHECK(program.Status() == "Done - files that stayed in Gauges: 1");
    CHECK(Tree(simulator.Fs()) == "Gauges/a.gau\n");
    CHECK(Tree(simulator.App() / "SpareGauges") == "b.gau\n");
  }
  CHECK(Get(simulator.Fs() / "Gauges" / "a.gau") == "the gauge a.gau");
}

TEST_CASE("Clean moves nothing when a needed gauge could be lost") {
  Simulator simulator;
  simulator.AddGauge("a.gau");
  SUBCASE("the Aircraft folder is gone") {
    fs::remove(simulator.Fs() / "Aircraft");
    Program program(simulator);
    program.Click("menRemove");
    CHECK(program.Status() == "Nothing was moved: the Aircraft folder cannot be read.");
    CHECK(program.Greyed().empty());
  }
  SUBCASE("panels name more files than the list can hold") {
    std::string panel = "[Window Titles]\nWindow00=W\n\n";
    for (int i = 0; i <= 32767; ++i) panel += "gauge=g" + std::to_string(i) + ",1\n";
    simulator.AddAircraft("Alpha", panel);
    Program program(simulator);
    program.Click("menRemove");
    CHECK(program.Status() == "Nothing was moved: there are more than 32,767 gauges.");
  }
  CHECK(Get(simulator.App() / "GAUGES.HTM") == Golden("welcome.htm", simulator.AppFolder(), ""));
  CHECK(fs::exists(simulator.Fs() / "Gauges" / "a.gau"));
}

TEST_CASE("an Aircraft folder without any panel entry lets everything move") {
  Simulator simulator;
  simulator.AddGauge("a.gau");
  Program program(simulator);
  program.Click("menRemove");
  CHECK(Tree(simulator.App() / "SpareGauges") == "a.gau\n");
}

}  // namespace
}  // namespace panelkit::test
