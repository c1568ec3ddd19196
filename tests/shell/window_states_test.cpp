#include <doctest/doctest.h>

#include "pages/about_window.h"
#include "shell/site_addresses.h"
#include "support/simulator.h"

namespace panelkit::test {
namespace {

TEST_CASE("without a simulator the commands are greyed and the page says so") {
  Simulator simulator;
  simulator.registry.applications.clear();
  Program program(simulator);
  program.form.Show();
  const std::string commands = "menProbe menShow menRemove menCool ";
  CHECK(program.Greyed() == commands);
  for (const char* item : {"menProbe", "menRemove", "menBrake", "menKeybd"}) program.Click(item);
  CHECK(simulator.Page() == simulator.Golden("no-simulator.htm"));
  CHECK(Tree(simulator.App()) == "GAUGES.HTM\n");
  program.Click("menMain");
  CHECK(simulator.Page() == simulator.Golden("welcome.htm"));
  CHECK(program.Greyed() == commands);
}

TEST_CASE("with a simulator the window starts ready, on the welcome page") {
  Simulator simulator;
  Program program(simulator);
  program.form.Show();
  CHECK(program.Window().Visible());
  CHECK(program.Greyed().empty());
  CHECK(simulator.Page() == simulator.Golden("welcome.htm"));
  const std::string& shown = program.Window().BrowserNamed("WebBrowser1").Address();
  CHECK(shown == simulator.AppFolder() + "\\GAUGES.HTM");
  program.Click("menKeybd");
  CHECK(shown == KeyboardPageUrl);
  program.Click("menVirtual");
  CHECK(shown == AirlineDirectoryUrl);
  program.Click("menVisit");
  CHECK(shown == SiteUrl);
}

TEST_CASE("a command greys all but File while it runs and takes no second pick") {
  Simulator simulator;
  simulator.AddGauge("spare.gau");
  Program program(simulator);
  for (const char* command : {"menProbe", "menShow", "menRemove"}) {
    std::string seen;
    std::string page;
    program.loop.on_turn = [&] {
      seen = program.Greyed();
      page = simulator.Page();
      for (const char* item : {"menProbe", "menBrake", "menAboutFS"}) program.Click(item);
    };
    program.Click(command);
    CHECK(seen == "menMain menProbe menShow menRemove menCool menHelp ");
    CHECK(page == simulator.Golden("working.htm"));
    CHECK(program.Greyed().empty());
    CHECK(program.Status() == "Done");
  }
  CHECK(program.face.FormTitled(kAboutWindow.title) == nullptr);
}

TEST_CASE("a program folder that cannot be written gives the menus back and a plain sentence") {
  Simulator simulator;
  simulator.AddGauge("spare.gau");
  std::filesystem::create_directories(simulator.App() / "GAUGES.HTM");
  Program program(simulator);
  for (const char* item : {"menProbe", "menRemove", "menMain"}) {
    program.Click(item);
    CHECK(program.Greyed().empty());
    CHECK(program.Status() == "GAUGES.HTM could not be written in the program's folder.");
  }
  CHECK(Tree(simulator.Fs()) == "Gauges/spare.gau\n");
}

TEST_CASE("the About window is centred when loaded and comes back where it was when hidden") {
  Simulator simulator;
  Program program(simulator);
  const auto about = [&]() -> MemoryForm& {
    program.Click("menAboutFS");
    return *program.face.FormTitled(kAboutWindow.title);
  };
  const ScreenSize screen = program.face.Screen();
  const Twips left = (screen.width - about().Width()) / 2;
  CHECK(about().Visible());
  CHECK(about().Left() == left);
  CHECK(about().Top() == (screen.height - about().Height()) / 2);
  about().MoveTo(30, 45);
  about().Click("Command1");
  CHECK(about().Left() == 30);
  about().Close();
  CHECK(about().Left() == left);
}

}  // namespace
}  // namespace panelkit::test
