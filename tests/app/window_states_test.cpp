#include <doctest/doctest.h>

#include <stdexcept>

#include "app/form_descriptions.h"
#include "pages/page_text.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

TEST_CASE_FIXTURE(Program, "without a simulator the commands are greyed and the page says so") {
  simulator.registry.applications.clear();
  form.Show();
  CHECK(Greyed() == "menProbe menShow menRemove menCool ");
  for (const char* item : {"menProbe", "menRemove", "menBrake", "menKeybd"}) Click(item);
  CHECK(simulator.Page() == simulator.Golden("no-simulator.htm"));
  CHECK(Tree(simulator.App()) == "GAUGES.HTM\n");
  Click("menMain");
  CHECK(simulator.Page() == simulator.Golden("welcome.htm"));
  CHECK(Greyed() == "menProbe menShow menRemove menCool ");
}

TEST_CASE_FIXTURE(Program, "with a simulator the window starts ready, on the welcome page") {
  form.Show();
  CHECK(Window().Visible());
  CHECK(Greyed().empty());
  CHECK(simulator.Page() == simulator.Golden("welcome.htm"));
  const std::string& shown = Window().BrowserNamed("WebBrowser1").Address();
  CHECK(shown == simulator.AppFolder() + "\\GAUGES.HTM");
  for (const auto& [item, path] :
       {std::pair{"menKeybd", "/members/panelkitcom/home/FS2002kbcmds.htm"},
        {"menVirtual", "/Top/Recreation/Aviation/Simulation/Virtual_Airlines/"},
        {"menVisit", PANELKIT_SITE_HOST}}) {
    Click(item);
    CHECK(shown.starts_with("http"));
    CHECK(shown.ends_with(path));
  }
}

TEST_CASE_FIXTURE(Program, "the window starts with its fixed texts and access keys") {
  std::string captions;
  for (const MenuDescription& item : kGaugesMenu) {
    captions += Window().MenuNamed(item.name).Caption() + (item.parent.empty() ? "|" : "; ");
  }
  CHECK(captions ==
        "&File|E&xit Program; &Main Page|&Probe For Missing Gauges|&Show All Gauges|&Clean Gauges|"
        "&Other Cool Stuff|FS2002 &Keyboard Commands; &Parking Brake Annunciator OFF; "
        "List of &Virtual Airlines; &Help|&Visit Panelkit Web Site; &About Panelkit; ");
  CHECK(Window().LabelNamed("lblFilePath").Caption() ==
        "Panelkit - Version 1.10  Dec 15, 2002              Come to " + std::string(SiteUrl) +
            " if you are looking for gauges");
  CHECK(Status() == "Made with care for everyone who builds and flies panels");
}

TEST_CASE_FIXTURE(Program, "a command greys all but File while it runs and takes no second pick") {
  simulator.AddGauge("spare.gau");
  for (const char* command : {"menProbe", "menShow", "menRemove"}) {
    std::string seen;
    std::string page;
    loop.on_turn = [&] {
      seen = Greyed();
      page = simulator.Page();
      for (const char* item : {"menProbe", "menBrake", "menAboutFS"}) Click(item);
    };
    Click(command);
    CHECK(seen == "menMain menProbe menShow menRemove menCool menHelp ");
    CHECK(page == simulator.Golden("working.htm"));
    CHECK(Greyed().empty());
    CHECK(Status() == "Done");
  }
  CHECK(toolkit.FormTitled(kAboutWindow.title) == nullptr);
}

TEST_CASE_FIXTURE(Program, "what went wrong is told until the next report, with the menus back") {
  simulator.AddGauge("spare.gau");
  simulator.AddAircraft("Alpha", "x\n");
  loop.on_turn = [this] {
    if (Status() == "Scanning Alpha") throw std::runtime_error("the disk has gone");
  };
  for (const char* command : {"menProbe", "menRemove"}) {
    Click(command);
    CHECK(Greyed().empty());
    CHECK(Status() == "The command could not be finished: the disk has gone.");
    CHECK(simulator.Page() == simulator.Golden("welcome.htm"));
    CHECK(form.Report() == nullptr);
    CHECK(Tree(simulator.Fs() / "Gauges") == "spare.gau\n");
  }
  // A panel too large for the memory is one that cannot be read, and ends no run.
  loop.on_turn = [this] {
    if (Status() == "Scanning Alpha") throw std::bad_alloc();
  };
  Click("menProbe");
  CHECK(Status() == "Done");
  CHECK(form.Unreadable() == std::vector<std::string>{"Alpha"});
}

TEST_CASE_FIXTURE(Program, "picks that make no report leave the labels alone, and the bar") {
  simulator.AddAircraft("Alpha", "x\n");
  simulator.AddGauge("a.gau");
  std::filesystem::create_directories(simulator.App() / "SpareGauges" / "a.gau");
  HeadlessBrowser& pane = Window().BrowserNamed("WebBrowser1");
  loop.on_turn = [&] { pane.FailToOpenLink(); };
  Click("menProbe");
  CHECK(Status() == "Done");
  loop.on_turn = {};
  Click("menRemove");
  const std::string folder = Window().LabelNamed("lblFilePath").Caption();
  CHECK(folder == "Flight Simulator: " + simulator.FSPath());
  const auto expect = [&](int bar, const std::string& status) {
    CHECK(Window().ProgressBarNamed("ProgressBar1").Value() == bar);
    CHECK(Window().LabelNamed("lblFilePath").Caption() == folder);
    CHECK(Status() == status);
  };
  for (const char* item : {"menKeybd", "menVirtual", "menVisit", "menAboutFS"}) {
    Click(item);
    expect(3, "Done - files that stayed in Gauges: 1");
  }
  Click("menMain");
  expect(0, "Done - files that stayed in Gauges: 1");
  pane.FailToOpenLink();
  expect(0, "The link could not be opened: no web browser was found.");
  Click("menKeybd");
  expect(0, "The link could not be opened: no web browser was found.");
}

TEST_CASE_FIXTURE(Program,
                  "a page that cannot be written in the program's folder is put elsewhere") {
  simulator.AddGauge("spare.gau");
  Files& files = simulator.Services().files;
  const std::string elsewhere = files.UserFolder() + "\\GAUGES.HTM";
  std::filesystem::create_directories(simulator.App() / "GAUGES.HTM");
  Click("menRemove");
  CHECK(Status() == "The page is in " + elsewhere + ".");
  CHECK(Window().BrowserNamed("WebBrowser1").Address() == elsewhere);
  CHECK(files.Read(elsewhere).bytes == simulator.Services().text.ToAnsi(form.ReportHtml) + "\r\n");
  CHECK(Tree(simulator.Fs()).empty());

  REQUIRE(files.Delete(elsewhere));
  REQUIRE(files.MakeFolder(elsewhere) == kFolderCreated);
  for (const char* item : {"menProbe", "menMain"}) {
    Click(item);
    CHECK(Greyed().empty());
    CHECK(Status().starts_with("GAUGES.HTM could not be written: "));
  }
}

TEST_CASE_FIXTURE(
    Program, "the About window is centred when loaded and comes back where it was when hidden") {
  const auto about = [&]() -> HeadlessForm& {
    Click("menAboutFS");
    return *toolkit.FormTitled(kAboutWindow.title);
  };
  HeadlessForm& window = about();
  const Twips left = (toolkit.Screen().width - window.Width()) / 2;
  CHECK(window.Visible());
  CHECK(window.Left() == left);
  CHECK(window.Top() == (toolkit.Screen().height - window.Height()) / 2);
  window.MoveTo(30, 45);
  window.Click("Command1");
  CHECK_FALSE(window.Visible());
  CHECK(about().Left() == 30);
  window.Close();
  CHECK(about().Left() == left);
}

}  // namespace
}  // namespace panelkit::test
