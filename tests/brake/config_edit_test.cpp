#include "brake/config_edit.h"

#include <doctest/doctest.h>

#include "support/simulator.h"

namespace panelkit::test {
namespace {

constexpr std::string_view kOff = "&Turn Parking Brake Annunciator OFF";
constexpr std::string_view kOn = "&Turn Parking Brake Annunciator ON";

// A life of fs2002.cfg, bytes as they stand on disk.
struct Case {
  const char* name;
  std::string config;
  std::string_view caption;  // After the start.
  std::string after_start;
  std::string after_pick;
};

const Case kCases[] = {
    {"set to 1", "a\r\nshow_brake_message=1\r\nb\r\n", kOff, "a\r\nshow_brake_message=1\r\nb\r\n",
     "a\r\nshow_brake_message=0\r\nb\r\n\r\n"},
    {"set to 0, in other case, bytes outside ASCII kept", "\x81\xE9\r\nSHOW_Brake_Message=0", kOn,
     "\x81\xE9\r\nSHOW_Brake_Message=0", "\x81\xE9\r\nshow_brake_message=1\r\n\r\n"},
    {"blanks around the value hide it", "show_brake_message = 0\r\n", kOff,
     "show_brake_message = 0\r\n", "show_brake_message=0\r\n\r\n"},
    {"only one digit counts", "show_brake_message=25\r\n", kOn, "show_brake_message=25\r\n",
     "show_brake_message=1\r\n\r\n"},
    {"no value", "show_brake_message=\r\n", kOff, "show_brake_message=\r\n",
     "show_brake_message=0\r\n\r\n"},
    {"no equals sign", "show_brake_message\r\n", kOff, "show_brake_message\r\n",
     "show_brake_message=0\r\n\r\n"},
    {"another equals sign in front decides", "x=0;show_brake_message=1\r\n", kOn,
     "x=0;show_brake_message=1\r\n", "show_brake_message=1\r\n\r\n"},
    {"missing: added behind each SYSCLOCK line", "[A]\r\nSYSCLOCK=1\r\nx=[sysclock]\r\nb\r\n", kOff,
     "[A]\r\nSYSCLOCK=1\r\nshow_brake_message=1\r\nx=[sysclock]\r\nshow_brake_message=1\r\nb\r\n"
     "\r\n",
     "[A]\r\nSYSCLOCK=1\r\nshow_brake_message=0\r\nx=[sysclock]\r\nshow_brake_message=0\r\nb\r\n"
     "\r\n\r\n"},
    {"missing, and no place for it", "a\rb\nc", kOff, "a\r\nb\r\nc\r\n\r\n",
     "a\r\nb\r\nc\r\n\r\n\r\n"},
    {"lone LF: the setting's line alone is replaced", "a\nshow_brake_message=1\nb\n", kOff,
     "a\nshow_brake_message=1\nb\n", "a\r\nshow_brake_message=0\r\nb\r\n\r\n"},
    {"empty file", "", kOff, "\r\n", "\r\n\r\n"},
};

TEST_CASE("the setting is found, added, and switched by a pick") {
  for (const Case& row : kCases) {
    CAPTURE(row.name);
    Simulator simulator;
    const auto config = simulator.Fs() / "FS2002.CFG";
    Put(config, row.config);
    Program program(simulator);
    program.form.Form_Load();
    const MemoryMenuItem& item = program.Window().MenuNamed("menBrake");
    CHECK(item.Caption() == row.caption);
    CHECK(Get(config) == row.after_start);
    const bool edited = row.config != row.after_start;
    CHECK(std::filesystem::exists(simulator.App() / "Backups") == edited);
    if (edited) {
      const std::string as_read = AsRead(row.config, [] {});
      CHECK(Get(simulator.App() / "Backups" / "FS2002.cfg") == as_read);
    }

    program.Click("menBrake");
    CHECK(item.Caption() == (row.caption == kOff ? kOn : kOff));
    CHECK(Get(config) == row.after_pick);
    CHECK(Get(simulator.App() / "BRAKES.HTM") ==
          Golden("brake.htm", simulator.AppFolder(), simulator.FSPath()));
    program.Click("menBrake");
    CHECK(item.Caption() == row.caption);
    CHECK(Tree(simulator.Fs()) == "FS2002.CFG\n");
  }
}

TEST_CASE("a configuration that cannot be read is not made up") {
  Simulator simulator;
  Program program(simulator);
  program.form.Form_Load();
  CHECK(program.Window().MenuNamed("menBrake").Caption() == kOff);
  program.Click("menBrake");
  CHECK(program.Window().MenuNamed("menBrake").Caption() == kOn);
  CHECK(Tree(simulator.Fs()).empty());
  CHECK(Tree(simulator.App()) == "BRAKES.HTM\nGAUGES.HTM\n");
}

TEST_CASE("a backup that cannot be made keeps nothing from being edited") {
  Simulator simulator;
  Put(simulator.App() / "Backups", "a file in the way");
  Put(simulator.Fs() / "fs2002.cfg", "SYSCLOCK\r\n");
  Program program(simulator);
  program.form.Form_Load();
  CHECK(Get(simulator.Fs() / "fs2002.cfg") == "SYSCLOCK\r\nshow_brake_message=1\r\n\r\n");
  CHECK(Get(simulator.App() / "Backups") == "a file in the way");
}

TEST_CASE("a read-only configuration stays as it is") {
  Simulator simulator;
  const auto config = simulator.Fs() / "fs2002.cfg";
  Put(config, "show_brake_message=1\r\n");
  std::filesystem::permissions(config, std::filesystem::perms::owner_read);
  Program program(simulator);
  program.form.Form_Load();
  program.Click("menBrake");
  CHECK(program.Window().MenuNamed("menBrake").Caption() == kOn);
  CHECK(Get(config) == "show_brake_message=1\r\n");
}

TEST_CASE("while a pick rewrites the file no other command starts") {
  Simulator simulator;
  const auto config = simulator.Fs() / "fs2002.cfg";
  Put(config, "a\r\nshow_brake_message=1\r\n");
  Program program(simulator);
  program.form.Form_Load();
  program.loop.on_turn = [&] {
    program.Click("menBrake");
    program.Click("menProbe");
  };
  program.Click("menBrake");
  CHECK(Get(config) == "a\r\nshow_brake_message=0\r\n\r\n");
  CHECK(program.Window().MenuNamed("menBrake").Caption() == kOn);
  CHECK(Get(simulator.App() / "GAUGES.HTM") == Golden("welcome.htm", simulator.AppFolder(), ""));
}

}  // namespace
}  // namespace panelkit::test
