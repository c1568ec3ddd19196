// Clean Gauges and restore over files on disk.
#include <doctest/doctest.h>

#include "gauges/gauge_mover.h"
#include "pages/report_text.h"
#include "support/cabinet_writer.h"
#include "support/simulator.h"

namespace fs = std::filesystem;

namespace panelkit::test {
namespace {

void PutReadOnly(const fs::path& file, std::string_view bytes) {
  Put(file, bytes);
  fs::permissions(file, fs::perms::owner_read);
}

TEST_CASE_FIXTURE(
    Program,
    "unneeded gauges move to the archive, needed ones stay, and two runs finish the work") {
  simulator.AddAircraft("Alpha",
                        "[Window Titles]\nWindow00=W\n\ngauge00=needed,1\ngauge01=Pack!dial,1\n");
  for (const char* file : {"needed.gau", "ABC.GAU", "twin.gau"}) simulator.AddGauge(file);
  const auto gauges = simulator.Fs() / "Gauges";
  const auto spare = simulator.App() / "SpareGauges";
  Put(gauges / "pack.cab", MakeCabinet({{"dial.xml"}, {"lamp.xml"}}));
  Put(gauges / "Spare.CAB", MakeCabinet({{"one.xml"}, {"two.xml"}}));
  Put(gauges / "twin.cab", MakeCabinet({{"t.xml"}}));
  Put(gauges / "art.cab", MakeCabinet({{"a.bmp"}}));
  PutReadOnly(gauges / "xabcy.gau", "the newer one");
  PutReadOnly(spare / "XABCY.gau", "an older copy");
  PutReadOnly(spare / "panelkit.moving", "half a gauge");
  const auto stamp = fs::last_write_time(gauges / "ABC.GAU");

  Click("menRemove");
  CHECK(simulator.Page() == simulator.Golden("clean.htm"));
  CHECK(Tree(gauges) == "art.cab\nneeded.gau\npack.cab\ntwin.cab\n");
  CHECK(Tree(spare) == "ABC.gau\nspare.cab\ntwin.gau\nxabcy.gau\n");
  CHECK(Get(spare / "xabcy.gau") == "the newer one");
  CHECK(fs::last_write_time(spare / "ABC.gau") == stamp);

  Click("menRemove");
  CHECK(Tree(gauges) == "art.cab\nneeded.gau\npack.cab\n");

  simulator.AddGauge("twin.gau");
  Files& files = simulator.Services().files;
  const GaugeFolders folders = FoldersOf(simulator.FSPath(), simulator.AppFolder());
  const auto outcome = RestoreGauges(files, folders, {"XABCY", "twin.gau", "none", "..\\x"});
  CHECK(outcome.restored == std::vector<std::string>{"xabcy.gau"});
  CHECK(outcome.already_there == std::vector<std::string>{"twin.gau"});
  CHECK(outcome.failed == std::vector<std::string>{"none", "..\\x"});
  CHECK(Tree(spare) == "ABC.gau\nspare.cab\ntwin.cab\ntwin.gau\n");
}

TEST_CASE_FIXTURE(Program,
                  "a gauge whose copy fails stays in Gauges, whole, and the user is told") {
  simulator.AddGauge("a.gau");
  simulator.AddGauge("B.gau");
  fs::create_directories(simulator.App() / "SpareGauges" / "B.gau");
  Click("menRemove");
  CHECK(Status() == "Done - files that stayed in Gauges: 1");
  CHECK(Tree(simulator.Fs()) == "Gauges/B.gau\n");
  CHECK(Get(simulator.Fs() / "Gauges" / "B.gau") == "the gauge B.gau");
  CHECK(Tree(simulator.App() / "SpareGauges") == "a.gau\n");
  CHECK(ReportText(*form.Report(), simulator.Services().text) ==
        "2 FILES, CONTAINING 2 GAUGES WERE REMOVED FROM FOLDER:\n    " + simulator.FSPath() +
            "\\Gauges\\\nAND ARCHIVED IN FOLDER:\n    " + simulator.AppFolder() +
            "\\SpareGauges\\\nRemoved Files:\n    a\n    B\n");
}

TEST_CASE_FIXTURE(Program, "Clean moves nothing when a needed gauge could be lost") {
  const std::string too_many = "Nothing was moved: there are more than 32,767 gauges.";
  simulator.AddGauge("a.gau");
  const auto cabinet = simulator.Fs() / "Gauges" / "many.cab";
  Put(cabinet, MakeCabinet(std::vector<CabinetEntry>(32767, {"dial.xml"})));
  Click("menRemove");
  CHECK(Status() == too_many);
  fs::remove(cabinet);
  std::string panel = "[Window Titles]\nWindow00=W\n\n";
  for (int i = 0; i <= 32767; ++i) panel += "gauge=g" + std::to_string(i) + ",1\n";
  simulator.AddAircraft("Alpha", panel);
  Click("menProbe");
  CHECK(Status() == "Done");
  Click("menRemove");
  CHECK(Status() == too_many);
  fs::remove_all(simulator.Fs() / "Aircraft");
  Click("menRemove");
  CHECK(Status() == "Nothing was moved: the Aircraft folder cannot be read.");
  CHECK(simulator.Page() == simulator.Golden("welcome.htm"));
  CHECK(Tree(simulator.App()) == "GAUGES.HTM\n");
}

}  // namespace
}  // namespace panelkit::test
