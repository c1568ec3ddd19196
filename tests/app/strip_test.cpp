// The strip below a report: what it offers after each command, and what its buttons do.
#include <doctest/doctest.h>

#include "app/search_case.h"
#include "pages/status_text.h"
#include "pages/strip_text.h"
#include "simulator/remembered_simulator.h"
#include "support/cabinet_writer.h"

namespace fs = std::filesystem;

namespace panelkit::test {
namespace {

TEST_CASE_FIXTURE(SearchCase, "what Clean moved comes back, and no more, and the rest is named") {
  simulator.AddAircraft("Alpha",
                        "[Window Titles]\nWindow00=W\n\ngauge00=needed,1\n"
                        "[Other]\n  gauge00=named,1\n");
  for (const char* file : {"needed.gau", "one.gau", "TWO.gau", "named.gau"}) {
    simulator.AddGauge(file);
  }
  const fs::path gauges = simulator.Fs() / "Gauges";
  Put(simulator.App() / "SpareGauges" / "earlier.gau", "of an earlier run");
  Click("menProbe");
  CHECK(Strip().Shown().empty());
  Click("menRemove");
  CHECK(Strip().Shown() ==
        "1 of the 3 moved files is named by panels in another way. [Put &Those Back] "
        "[Put All &Back]");
  std::string seen;
  loop.on_turn = [&] { seen = Greyed(); };
  Strip().Press("Put &Those Back");
  loop.on_turn = {};
  CHECK(seen == "menMain menProbe menShow menRemove menCool menHelp ");
  CHECK(Greyed().empty());
  CHECK(Status() == "Done");
  CHECK(Tree(gauges) == "named.gau\nneeded.gau\n");
  CHECK(Strip().Shown() ==
        "1 file was put back into Gauges. 2 files are still in SpareGauges. [Put Them &Back]");

  Put(gauges / "one.gau", "another of that name");
  fs::remove(simulator.App() / "SpareGauges" / "TWO.gau");
  simulator.AddAircraft("Beta", "");
  Strip().Press("Put Them &Back");
  const std::string spare =
      BothNames(simulator.Services().files, simulator.AppFolder() + "\\SpareGauges");
  CHECK(Replaced(OwnPage("RESTORED.HTM"), spare, "{SPARE}") == simulator.Golden("restored.htm"));
  CHECK(Strip().Shown() ==
        "None of the 2 files was put back into Gauges. 1 file is still in SpareGauges. "
        "[Put Them &Back]");
  Click("menMain");
  CHECK(Strip().Shown().empty());
  CHECK(Tree(simulator.App() / "SpareGauges") == "earlier.gau\none.gau\n");
}

TEST_CASE_FIXTURE(SearchCase,
                  "Why tells of each required file, and no name becomes a part of the page") {
  simulator.AddAircraft("Alpha",
                        "[Window Titles]\nWindow00=W\n\ngauge00=Speed!dial,1\n"
                        "gauge01=<b>&\"bold',1\ngauge02=Oil,1\n[Other]\n  gauge00=sp\xE4t,1\n");
  simulator.AddAircraft("Beta", "[Window Titles]\nWindow00=W\n\ngauge00=Speed!dial,1\n");
  Put(simulator.Fs() / "Gauges" / "speed.cab", MakeCabinet({{"dail.xml"}}));
  simulator.AddGauge("OilTemp.gau");
  for (const char* command : {"menProbe", "menShow"}) {
    Click(command);
    const std::string report = simulator.Page();
    CHECK(Strip().Shown() == "2 required files are missing. [Wh&y?] [&Look for Them...]");
    Strip().Press("Wh&y?");
    CHECK(OwnPage("HINTS.HTM") == simulator.Golden("hints.htm"));
    CHECK(simulator.Page() == report);
    CHECK(Window().BrowserNamed("WebBrowser1").Address().ends_with("HINTS.HTM"));
    CHECK(Status() == "Done");
  }
  form.Steps().WriteCommandsIn({.program = "panelkit-console --prefix P", .is_posix = true});
  Click("menProbe");
  Strip().Press("Wh&y?");
  CHECK(Replaced(OwnPage("HINTS.HTM"), "console find", "console --prefix P find") ==
        OwnPage("HINTS.HTM"));
  CHECK(Replaced(OwnPage("HINTS.HTM"), " --prefix P", "") == simulator.Golden("hints.htm"));
}

// A simulator that lacks four files, three of which lie in two folders beside it.
struct WithDownloads : SearchCase {
  WithDownloads() {
    simulator.AddAircraft("Alpha",
                          "[Window Titles]\nWindow00=W\n\ngauge00=Speed!dial,1\n"
                          "gauge01=Oil,1\ngauge02=Gone,1\ngauge03=Lost!<b>,1\n");
    Put(New() / "Speed.cab", MakeCabinet({{"dial.xml"}}));
    Put(New() / "Oil.gau", GaugeBytes("new"));
    Put(New() / "Gone.gau", "<html>Not found</html>");
    Put(Old() / "Oil (1).gau", GaugeBytes("old"));
  }
};

TEST_CASE_FIXTURE(WithDownloads, "what a search finds is installed, told, and taken out again") {
  const fs::path gauges = simulator.Fs() / "Gauges";
  std::string at_work;
  loop.on_turn = [&] {
    if (!Strip().Shown().empty()) at_work = Greyed() + Strip().Shown();
    Click("menProbe");
  };
  LookIn({Path("new"), Path("old"), Path("absent")});
  CHECK(at_work ==
        "menMain menProbe menShow menRemove menCool menHelp Looking for 4 required files. "
        "[S&top]");
  CHECK(Found() == simulator.Golden("found.htm"));
  CHECK(Strip().Shown() ==
        "2 of the 4 can be copied to Gauges. [&Install Them] [Look Else&where...]");
  CHECK(Tree(gauges).empty());

  Strip().Press("&Install Them");
  CHECK(Greyed().empty());
  CHECK(Tree(gauges) == "Oil.gau\nSpeed.cab\n");
  CHECK(Get(gauges / "Oil.gau") == GaugeBytes("new"));
  CHECK(Found() == simulator.Golden("installed.htm"));
  Window().choice = {};
  Strip().Press("Look Else&where...");
  CHECK(Strip().Shown() ==
        "2 files were copied to Gauges; 2 are still missing. [Ta&ke Them Out Again] "
        "[Look Else&where...]");

  Put(gauges / "Speed.cab", "changed since");
  Put(gauges / "Other.gau", "not ours");
  Strip().Press("Ta&ke Them Out Again");
  CHECK(Tree(gauges) == "Other.gau\nSpeed.cab\n");
  CHECK(OwnPage("FOUND.HTM").find("could not be removed:</b><br>\r\n&nbsp; &nbsp; Speed.cab") !=
        std::string::npos);
  CHECK(Strip().Shown() ==
        "1 file was taken out again, 1 was left. 4 required files are missing. [Wh&y?] "
        "[&Look for Them...]");
}

TEST_CASE_FIXTURE(WithDownloads,
                  "a search that is stopped, finds nothing or loses its files ends well") {
  LookIn({});
  CHECK(Strip().Shown() == "4 required files are missing. [Wh&y?] [&Look for Them...]");
  LookIn({Path("absent")});
  CHECK(Strip().Shown() == "None of the 4 was found there. [Look Else&where...]");

  // It is stopped one turn later each time, until it ends by itself.
  bool is_stopped = true;
  std::string sentences;
  for (int last = 1; is_stopped; ++last) {
    is_stopped = false;
    int turns = 0;
    loop.on_turn = [&] {
      if (!Strip().Shown().ends_with("[S&top]") || ++turns != last) return;
      is_stopped = true;
      Strip().Press("S&top");
    };
    LookIn({Path("new")});
    CHECK(Greyed().empty());
    CHECK((Found().find("The search was stopped") != std::string::npos) == is_stopped);
    const std::string sentence = Strip().Shown().substr(0, Strip().Shown().find('.'));
    if (!sentences.ends_with(sentence + "\n")) sentences += sentence + "\n";
  }
  loop.on_turn = {};
  CHECK(sentences ==
        "None of the 4 was found there\n"
        "1 of the 4 can be copied to Gauges\n"  // After the first gauge.
        "None of the 4 was found there\n"       // While all that was found is read.
        "1 of the 4 can be copied to Gauges\n"
        "2 of the 4 can be copied to Gauges\n");

  LookIn({Path("new")});
  fs::remove(New() / "Oil.gau");
  Put(simulator.Fs() / "Gauges" / "speed.cab", "came meanwhile");
  Strip().Press("&Install Them");
  CHECK(Greyed().empty());
  CHECK(Status() == "Not all files could be copied: the page says why.");
  CHECK(Strip().Shown() ==
        "No file was copied to Gauges; 4 are still missing. [Look Else&where...]");
  CHECK(Get(simulator.Fs() / "Gauges" / "speed.cab") == "came meanwhile");
}

TEST_CASE_FIXTURE(WithDownloads, "a drop looks in what was dropped, but not without a simulator") {
  form.Show();
  Window().drop({Path("new") + "\\Oil.gau"});
  CHECK(Strip().Shown() ==
        "1 of the 4 can be copied to Gauges. [&Install Them] [Look Else&where...]");
  CHECK(Window().BrowserNamed("WebBrowser1").Address().ends_with("FOUND.HTM"));
  Click("menMain");
  loop.on_turn = [this] { Window().drop({Path("new")}); };
  Click("menProbe");
  CHECK(Strip().Shown() == "4 required files are missing. [Wh&y?] [&Look for Them...]");
  loop.on_turn = {};
  Click("menMain");
  fs::rename(simulator.Fs() / "Aircraft", simulator.Fs() / "Elsewhere");
  Window().drop({Path("new")});
  CHECK(Status().starts_with("No aircraft were found: "));
  simulator.registry.applications.clear();
  form.Form_Load();
  Window().drop({Path("new")});
  CHECK(Greyed() == "menProbe menShow menRemove menCool ");
}

TEST_CASE_FIXTURE(SearchCase,
                  "a simulator that is chosen is the program's from then on, if it is one") {
  simulator.registry.applications.clear();
  Files& files = simulator.Services().files;
  form.Show();
  form.Steps().OfferSimulators({}, 0);
  CHECK(Strip().Shown() == "Flight Simulator 2002 was not found. [Choose &Its Folder...]");
  const auto choose = [this](const std::string& button, const std::string& folder) {
    Window().choice = {folder};
    Strip().Press(button);
  };
  choose("Choose &Its Folder...", simulator.AppFolder());
  CHECK(Strip().Shown() ==
        files.NativePath(simulator.AppFolder()) +
            " is no simulator: it lacks Aircraft or Gauges. [Choose &Another...]");
  CHECK(Greyed() == "menProbe menShow menRemove menCool ");
  CHECK(RememberedSimulator(files).empty());
  choose("Choose &Another...", simulator.FSPath());
  CHECK(Greyed().empty());
  CHECK(simulator.Page() == simulator.Golden("welcome.htm"));
  CHECK(form.GetFSPath() == simulator.FSPath());
  CHECK(RememberedSimulator(files) == files.NativePath(simulator.FSPath()));
  form.Steps().OfferSimulators("/gone", 3);
  CHECK(Strip().Shown() ==
        "The simulator that you chose is no longer in /gone. This is the simulator in " +
            files.NativePath(simulator.FSPath()) + ", one of 3. [Choose &Another...]");
  choose("Choose &Another...", simulator.FSPath());
  form.Steps().OfferSimulators({}, 1);
  CHECK(Strip().Shown().empty());
}

TEST_CASE("the strip counts nothing, one and many") {
  CHECK(MissingText(0) == "No required file is missing.");
  CHECK(MissingText(1) == "1 required file is missing.");
  CHECK(MovedText(1, 0) == "1 file was moved to SpareGauges.");
  CHECK(MovedText(2, 0) == "2 files were moved to SpareGauges.");
  CHECK(MovedText(1, 1) == "The moved file is named by a panel in another way.");
  CHECK(PutBackText(2, 2) == "2 files were put back into Gauges.");
  CHECK(FoundText(0, 0, 1) == "The required file was not found there.");
  CHECK(FoundText(1, 1, 1) == "The required file can be copied to Gauges.");
  CHECK(FoundText(0, 1, 1) == "The required file cannot be copied to Gauges.");
  CHECK(FoundText(0, 1, 2) == "None of the 2 can be copied to Gauges.");
  CHECK(InstalledText(1, 0) == "1 file was copied to Gauges; none is missing now.");
  CHECK(InstalledText(1, 1) == "1 file was copied to Gauges; 1 is still missing.");
  CHECK(PutBackText(0, 1) == "The file could not be put back into Gauges.");
}

}  // namespace
}  // namespace panelkit::test
