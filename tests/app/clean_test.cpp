// Clean Gauges and restore over files on disk.
#include <doctest/doctest.h>

#include "gauges/gauge_mover.h"
#include "pages/report_text.h"
#include "support/cabinet_writer.h"
#include "support/simulator.h"

namespace fs = std::filesystem;

namespace panelkit::test {
namespace {

using Names = std::vector<std::string>;

void PutReadOnly(const fs::path& file, std::string_view bytes) {
  Put(file, bytes);
  fs::permissions(file, fs::perms::owner_read);
}

std::string ReportTextOf(Program& program) {
  std::string text;
  TellReport(*program.form.Report(), program.simulator.Services().text,
             [&](std::string_view line) { text.append(line).append("\n"); });
  return text;
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
  Files& files = simulator.Services().files;
  const Text& text = simulator.Services().text;
  const GaugeFolders folders = FoldersOf(simulator.FSPath(), simulator.AppFolder());
  const auto restore = [&](const GaugeFolders& pair, const std::string& name,
                           RestoreChoice choice) {
    return RestoreGauges(files, text, {pair}, {name}, choice, {});
  };
  // Of other bytes, the older one can be had too.
  CHECK(restore(folders, "xabcy", RestoreChoice::Older).restored == Names{"xabcy.gau"});
  CHECK(Get(gauges / "xabcy.gau") == "an older copy");
  CHECK(files.Delete(folders.gauges + "\\xabcy.gau"));  // Read-only, as the older one was.
  CHECK(Tree(spare) == "ABC.gau\nspare.cab\ntwin.gau\nxabcy.gau\n");
  CHECK(Get(spare / "xabcy.gau") == "the newer one");
  // What came from here comes back as it was spelt, and to no other simulator unless it is named.
  const GaugeFolders other{simulator.FSPath() + "\\other", folders.spare};
  Put(simulator.Fs() / "other" / "readme.txt", "");
  Put(spare / "unknown.gau", "of no record");
  const auto elsewhere = restore(other, "*", RestoreChoice::Own);
  CHECK(elsewhere.restored == Names{"unknown.gau"});
  CHECK(elsewhere.from_elsewhere == Names{"ABC.gau", "twin.gau", "xabcy.gau", "spare.cab"});
  CHECK(restore(folders, "s*", RestoreChoice::Own).restored == Names{"Spare.CAB"});
  CHECK(fs::last_write_time(spare / "ABC.gau") == stamp);

  Click("menRemove");
  CHECK(Tree(gauges) == "art.cab\nneeded.gau\npack.cab\n");

  simulator.AddGauge("twin.gau");
  // A second archive, of a run whose program folder was another one.
  const GaugeFolders older = FoldersOf(simulator.FSPath(), simulator.FSPath() + "\\older");
  Put(simulator.Fs() / "older" / "SpareGauges" / "Old.gauge_pack.cab", "only here");
  Put(simulator.Fs() / "older" / "SpareGauges" / "xabcy.gau", "the oldest copy");
  const std::vector<std::string> names{"XABCY", "twin.gau", "none", "..\\x", "Old.gauge_pack"};
  const auto outcome = RestoreGauges(files, simulator.Services().text, {folders, older}, names,
                                     RestoreChoice::Own, {});
  CHECK(outcome.restored == std::vector<std::string>{"xabcy.gau", "Old.gauge_pack.cab"});
  CHECK(outcome.already_there == std::vector<std::string>{"twin.gau"});
  CHECK(outcome.failed == std::vector<std::string>{"none", "..\\x"});
  CHECK(Get(gauges / "xabcy.gau") == "the newer one");
  CHECK(Tree(spare) == "ABC.gau\nspare.cab\ntwin.cab\ntwin.gau\n");
}

TEST_CASE_FIXTURE(Program, "one gauge to remove, and then none, are told in the same words") {
  const auto heading = [](const std::string& number) {
    return "<b>" + number + " FILES, CONTAINING " + number + " GAUGES WERE REMOVED FROM FOLDER: ";
  };
  for (const char* number : {"0", "1", "0"}) {
    if (number[0] == '1') simulator.AddGauge("a.gau");
    Click("menRemove");
    CHECK(simulator.Page().find(heading(number)) != std::string::npos);
    CHECK(simulator.Page().find("See if you can find your required files") != std::string::npos);
    CHECK(std::filesystem::is_directory(simulator.App() / "SpareGauges"));
  }
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
  CHECK(ReportTextOf(*this) ==
        "2 FILES, CONTAINING 2 GAUGES WERE REMOVED FROM FOLDER:\n    " + simulator.FSPath() +
            "\\Gauges\\\nAND ARCHIVED IN FOLDER:\n    " + simulator.AppFolder() +
            "\\SpareGauges\\\nRemoved Files:\n    a\n    B\n");
}

TEST_CASE_FIXTURE(Program, "a file that is gone by then counts, and a stop leaves the others") {
  for (const char* file : {"a.gau", "b.gau", "c.gau"}) simulator.AddGauge(file);
  simulator.AddAircraft("Alpha", "x\n");
  loop.on_turn = [&] {
    if (Status() == "Scanning Alpha") fs::remove(simulator.Fs() / "Gauges" / "a.gau");
  };
  int asked = 0;
  form.Stop = [&] { return ++asked > 1; };
  Click("menRemove");
  CHECK(form.Moved().moved == std::vector<std::string>{"b.gau"});
  CHECK(form.Moved().left == std::vector<std::string>{"c.gau"});
  form.Stop = {};
  simulator.AddGauge("a.gau");
  Click("menRemove");
  CHECK(Status() == "Done");
  CHECK(ReportTextOf(*this).starts_with("2 FILES, CONTAINING 2 "));
  CHECK(Tree(simulator.App() / "SpareGauges") == "b.gau\nc.gau\n");
}

TEST_CASE_FIXTURE(Program, "a scan that is not whole is told, and then Clean moves nothing") {
  const std::string too_many = "Nothing was moved: there are more than 32,767 gauges.";
  const std::string not_whole = "There are more than 32,767 gauges: the report is not whole.";
  simulator.AddGauge("a.gau");
  const auto expect = [&](const std::string& after_probe, const std::string& after_clean) {
    Click("menProbe");
    CHECK(Status() == after_probe);
    Click("menRemove");
    CHECK(Status() == after_clean);
    CHECK(Tree(simulator.Fs() / "Gauges").starts_with("a.gau\n"));
  };
  const auto cabinet = simulator.Fs() / "Gauges" / "many.cab";
  Put(cabinet, MakeCabinet(std::vector<CabinetEntry>(32767, {"dial.xml"})));
  expect(not_whole, too_many);
  fs::remove(cabinet);
  std::string panel = "[Window Titles]\nWindow00=W\n\n";
  for (int i = 0; i <= 32767; ++i) panel += "gauge=g" + std::to_string(i) + ",1\n";
  simulator.AddAircraft("Alpha", panel);
  expect(not_whole, too_many);
  simulator.AddAircraft("Alpha", "x\n");
  fs::create_directories(simulator.Fs() / "Aircraft" / "Beta" / "Panel" / "panel.cfg");
  form.Careful = true;
  expect("Done", "Nothing was moved: panels that could not be read: 1.");
  CHECK(form.Unreadable() == std::vector<std::string>{"Beta"});
  fs::remove_all(simulator.Fs() / "Aircraft");
  const std::string no_aircraft = simulator.FSPath() + " has no Aircraft folder.";
  expect("No aircraft were found: " + no_aircraft, "Nothing was moved: " + no_aircraft);
  CHECK(simulator.Page() == simulator.Golden("welcome.htm"));
  CHECK(Tree(simulator.App()) == "GAUGES.HTM\n");

  fs::create_directories(simulator.Fs() / "Aircraft" / "Beta" / "Panel" / "panel.cfg");
  form.Careful = false;
  Click("menRemove");
  CHECK(Status() == "Done - panels that could not be read: 1");
  CHECK(Tree(simulator.Fs()).empty());
  simulator.registry.applications = {{"Flight Simulator", TextValue("C:\\gone")}};
  Click("menShow");
  CHECK(Status() == "No aircraft were found: the folder C:\\gone is not there.");
}

TEST_CASE_FIXTURE(Program, "Probe after Show lists the missing gauges alone") {
  simulator.AddAircraft("Alpha", "[Window Titles]\nWindow00=W\n\ngauge=here,1\ngauge=gone,1\n");
  simulator.AddGauge("here.gau");
  for (const auto& [item, lists_all] : {std::pair{"menShow", true}, {"menProbe", false}}) {
    Click(item);
    CHECK((simulator.Page().find("; here<br>") != std::string::npos) == lists_all);
    CHECK(simulator.Page().find("; gone *** MISSING ***<br>") != std::string::npos);
  }
}

}  // namespace
}  // namespace panelkit::test
