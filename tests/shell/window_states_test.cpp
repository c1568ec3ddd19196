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
  CHECK(program.Greyed() == "menProbe menShow menRemove menCool ");
  CHECK(Get(simulator.App() / "GAUGES.HTM") ==
        Golden("no-simulator.htm", simulator.AppFolder(), ""));
  CHECK(Tree(simulator.App()) == "GAUGES.HTM\n");

  for (const char* item : {"menProbe", "menShow", "menRemove", "menBrake", "menKeybd"}) {
    program.Click(item);
  }
  CHECK(Tree(simulator.App()) == "GAUGES.HTM\n");
  program.Click("menMain");
  CHECK(Get(simulator.App() / "GAUGES.HTM") == Golden("welcome.htm", simulator.AppFolder(), ""));
  CHECK(program.Greyed() == "menProbe menShow menRemove menCool ");
}

TEST_CASE("with a simulator the window starts ready, on the welcome page") {
  Simulator simulator;
  Program program(simulator);
  program.form.Show();
  CHECK(program.Window().Visible());
  CHECK(program.Greyed().empty());
  CHECK(Get(simulator.App() / "GAUGES.HTM") == Golden("welcome.htm", simulator.AppFolder(), ""));
  const std::string& shown = program.Window().BrowserNamed("WebBrowser1").Address();
  CHECK(shown == simulator.AppFolder() + "\\GAUGES.HTM");

  for (const auto& [item, address] : {std::pair{"menKeybd", KeyboardPageUrl},
                                      {"menVirtual", AirlineDirectoryUrl},
                                      {"menVisit", SiteUrl}}) {
    program.Click(item);
    CHECK(shown == address);
  }
}

TEST_CASE("a command greys all but File while it runs and takes no second pick") {
  Simulator simulator;
  simulator.AddAircraft("Alpha", "[Window Titles]\nWindow00=Main\n\ngauge00=horn,1,2\n");
  Program program(simulator);
  program.form.Show();
  std::string seen;
  std::string page;
  program.loop.on_turn = [&] {
    seen = program.Greyed();
    page = Get(simulator.App() / "GAUGES.HTM");
    for (const char* item : {"menProbe", "menMain", "menBrake", "menAboutFS"}) program.Click(item);
  };
  program.Click("menProbe");
  CHECK(seen == "menMain menProbe menShow menRemove menCool menHelp ");
  CHECK(page == Golden("working.htm", simulator.AppFolder(), ""));
  CHECK(program.Greyed().empty());
  CHECK(program.Status() == "Done");
  CHECK(program.Window().LabelNamed("lblFilePath").Caption() ==
        "Flight Simulator: " + simulator.FSPath());
  CHECK(program.face.FormTitled(kAboutWindow.title) == nullptr);
}

TEST_CASE("a program folder that cannot be written gives the menus back and a plain sentence") {
  Simulator simulator;
  Program program(simulator);
  program.form.Show();
  std::filesystem::remove(simulator.App() / "GAUGES.HTM");
  std::filesystem::create_directories(simulator.App() / "GAUGES.HTM");
  simulator.AddGauge("spare.gau");
  for (const char* item : {"menProbe", "menShow", "menRemove", "menMain"}) {
    program.Click(item);
    CHECK(program.Greyed().empty());
    CHECK(program.Status() == "GAUGES.HTM could not be written in the program's folder.");
  }
  CHECK(Tree(simulator.Fs()) == "Gauges/spare.gau\n");
}

TEST_CASE("the About window is centred when loaded and comes back where it was when hidden") {
  Simulator simulator;
  Program program(simulator);
  program.form.Show();
  program.Click("menAboutFS");
  const auto about = [&]() -> MemoryForm& { return *program.face.FormTitled(kAboutWindow.title); };
  const ScreenSize screen = program.face.Screen();
  const Twips left = (screen.width - about().Width()) / 2;
  const Twips top = (screen.height - about().Height()) / 2;
  CHECK(about().Visible());
  CHECK(about().Left() == left);
  CHECK(about().Top() == top);

  about().MoveTo(30, 45);
  about().Click("Command1");
  CHECK_FALSE(about().Visible());
  program.Click("menAboutFS");
  CHECK(about().Visible());
  CHECK(about().Left() == 30);

  about().Close();
  program.Click("menAboutFS");
  CHECK(about().Visible());
  CHECK(about().Left() == left);
}

}  // namespace
}  // namespace panelkit::test
