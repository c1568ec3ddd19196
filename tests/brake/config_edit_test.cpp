#include "brake/config_edit.h"

#include <doctest/doctest.h>

#include "support/simulator.h"

namespace panelkit::test {
namespace {

const std::string kOff = "&Turn Parking Brake Annunciator OFF";
const std::string kOn = "&Turn Parking Brake Annunciator ON";

// The program on a simulator with this configuration, started.
struct Started : Program {
  std::filesystem::path config = simulator.Fs() / "FS2002.CFG";
  std::string first_status = Status();

  explicit Started(const std::string& bytes) {
    Put(config, bytes);
    form.Form_Load();
  }
  std::string Caption() const { return Window().MenuNamed("menBrake").Caption(); }
};

// A life of fs2002.cfg, bytes as they stand on disk.
struct Edit {
  std::string name;
  std::string config;
  std::string caption;  // After the start.
  std::string after_pick;
  std::string after_start = config;
};

const Edit kEdits[] = {
    {"set to 0, in other case, bytes outside ASCII kept", "\x81\xE9\r\nSHOW_Brake_Message=0", kOn,
     "\x81\xE9\r\nshow_brake_message=1\r\n\r\n"},
    {"blanks around the value hide it", "show_brake_message = 0\r\n", kOff,
     "show_brake_message=0\r\n\r\n"},
    {"of ten only the one counts", "show_brake_message=10\r\n", kOff,
     "show_brake_message=0\r\n\r\n"},
    {"only one digit counts", "show_brake_message=25\r\n", kOn, "show_brake_message=1\r\n\r\n"},
    {"no value", "show_brake_message=\r\n", kOff, "show_brake_message=0\r\n\r\n"},
    {"another equals sign in front decides", "x=0;show_brake_message=1\r\n", kOn,
     "show_brake_message=1\r\n\r\n"},
    {"missing: added behind each SYSCLOCK line", "[A]\r\nSYSCLOCK=1\r\nx=[sysclock]\r\nb\r\n", kOff,
     "[A]\r\nSYSCLOCK=1\r\nshow_brake_message=0\r\nx=[sysclock]\r\nshow_brake_message=0\r\nb\r\n"
     "\r\n\r\n",
     "[A]\r\nSYSCLOCK=1\r\nshow_brake_message=1\r\nx=[sysclock]\r\nshow_brake_message=1\r\nb\r\n"
     "\r\n"},
    {"missing, and no place for it", "a\rb\nc", kOff, "a\r\nb\nc\r\n\r\n\r\n", "a\r\nb\nc\r\n\r\n"},
    {"a lone LF ends no line where the file has a CR", "a\nSYSCLOCK=1\r\n\nb\n", kOff,
     "a\nSYSCLOCK=1\r\nshow_brake_message=0\r\n\nb\n\r\n\r\n\r\n",
     "a\nSYSCLOCK=1\r\nshow_brake_message=1\r\n\nb\n\r\n\r\n"},
    {"no equals sign, lone LF: that line alone is replaced", "a\nshow_brake_message\nb\n", kOff,
     "a\r\nshow_brake_message=0\r\nb\r\n\r\n"},
    {"empty file", "", kOff, "\r\n\r\n", "\r\n"},
};

TEST_CASE("the setting is found, added, and switched by a pick") {
  for (const Edit& row : kEdits) {
    CAPTURE(row.name);
    Started brakes(row.config);
    CHECK(brakes.Caption() == row.caption);
    CHECK(Get(brakes.config) == row.after_start);
    const auto backup = brakes.simulator.App() / "Backups" / "FS2002.cfg";
    const bool edited = row.config != row.after_start;
    CHECK(std::filesystem::exists(backup.parent_path()) == edited);
    if (edited) CHECK(Get(backup) == AsRead(row.config, [] {}));
    CHECK(brakes.Status() == brakes.first_status);

    brakes.Click("menBrake");
    const bool has_setting = row.after_pick.find('=') != std::string::npos;
    CHECK(brakes.Status() == (has_setting
                                  ? brakes.first_status
                                  : "fs2002.cfg has no SYSCLOCK line to put the setting behind."));
    CHECK(brakes.Caption() == (row.caption == kOff ? kOn : kOff));
    CHECK(Get(brakes.config) == row.after_pick);
    CHECK(Tree(brakes.simulator.Fs()) == "FS2002.CFG\n");
  }
}

TEST_CASE("a pick under any caption but the one that hides the messages shows them") {
  Started brakes("show_brake_message=0\r\n");
  brakes.Window().MenuNamed("menBrake").SetCaption("&turn Parking Brake Annunciator OFF");
  brakes.Click("menBrake");
  CHECK(brakes.Caption() == kOff);
  CHECK(Get(brakes.config) == "show_brake_message=1\r\n\r\n");
  CHECK(Get(brakes.simulator.App() / "BRAKES.HTM") == brakes.simulator.Golden("brake.htm"));
}

TEST_CASE("each start without the setting and without a place for it backs up and adds a line") {
  Started brakes("a\r\n");
  const std::string after_start = Get(brakes.config);
  brakes.form.Form_Load();
  CHECK(Get(brakes.config) == "a\r\n\r\n\r\n");
  CHECK(Get(brakes.simulator.App() / "Backups" / "FS2002.cfg") == after_start + "\r\n");
}

TEST_CASE("an edit that could not be made is told, and the file stays as it was") {
  using std::filesystem::perms;
  Started brakes("show_brake_message=1\r\n");
  std::filesystem::remove(brakes.config);
  const auto expect = [&](const std::string& status, const std::string& caption) {
    CHECK(brakes.Status() == status);
    CHECK(brakes.Caption() == caption);
  };
  brakes.form.Form_Load();
  expect("fs2002.cfg was not changed: it is not there.", kOff);
  brakes.Click("menBrake");
  expect("fs2002.cfg was not changed: it is not there.", kOn);
  CHECK(Tree(brakes.simulator.Fs()).empty());
  CHECK(Tree(brakes.simulator.App()) == "BRAKES.HTM\nGAUGES.HTM\n");

  Put(brakes.config, "show_brake_message=0\r\n");
  std::filesystem::permissions(brakes.config, perms::owner_read);
  brakes.Click("menBrake");
  CHECK(brakes.Status().starts_with("fs2002.cfg was not changed: "));
  CHECK(brakes.Caption() == kOff);
  CHECK(Get(brakes.config) == "show_brake_message=0\r\n");
  CHECK(brakes.form.Brakes().shown == false);

  // The setting is added without a backup, if need be.
  std::filesystem::permissions(brakes.config, perms::owner_all);
  Put(brakes.config, "SYSCLOCK=1\r\n");
  Put(brakes.simulator.App() / "Backups", "no folder");
  brakes.Click("menMain");
  brakes.form.Form_Load();
  CHECK(brakes.Status().starts_with("fs2002.cfg was changed without a backup: "));
  CHECK(Get(brakes.config) == "SYSCLOCK=1\r\nshow_brake_message=1\r\n\r\n");
  brakes.Click("menBrake");
  expect(brakes.first_status, kOn);
}

TEST_CASE("while a pick rewrites the file no other command starts") {
  Started brakes("a\r\nshow_brake_message=1\r\n");
  brakes.loop.on_turn = [&] {
    brakes.Click("menBrake");
    brakes.Click("menProbe");
  };
  brakes.Click("menBrake");
  CHECK(Get(brakes.config) == "a\r\nshow_brake_message=0\r\n\r\n");
  CHECK(brakes.Caption() == kOn);
  CHECK(brakes.simulator.Page() == brakes.simulator.Golden("welcome.htm"));
  CHECK(Get(brakes.simulator.App() / "BRAKES.HTM") == brakes.simulator.Golden("brake.htm"));
}

}  // namespace
}  // namespace panelkit::test
