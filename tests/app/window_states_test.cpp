#include <doctest/doctest.h>

#include <stdexcept>

#include "app/about_window.h"
#include "pages/site_addresses.h"
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
  for (const auto& [item, address] : {std::pair{"menKeybd", KeyboardPageUrl},
                                      {"menVirtual", AirlineDirectoryUrl},
                                      {"menVisit", SiteUrl}}) {
    Click(item);
    CHECK(shown == address);
  }
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

TEST_CASE_FIXTURE(Program, "a command that fails half way gives the menus back and says so") {
  simulator.AddGauge("spare.gau");
  loop.on_turn = [] { throw std::runtime_error("out of memory, say"); };
  Click("menRemove");
  CHECK(Greyed().empty());
  CHECK(Status() == "The command could not be finished.");
  Click("menProbe");
  CHECK(Status() == "Done");
}

TEST_CASE_FIXTURE(
    Program, "a program folder that cannot be written gives the menus back and a plain sentence") {
  simulator.AddGauge("spare.gau");
  std::filesystem::create_directories(simulator.App() / "GAUGES.HTM");
  for (const char* item : {"menProbe", "menRemove", "menMain"}) {
    Click(item);
    CHECK(Greyed().empty());
    CHECK(Status() == "GAUGES.HTM could not be written in the program's folder.");
  }
  CHECK(Tree(simulator.Fs()) == "Gauges/spare.gau\n");
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
