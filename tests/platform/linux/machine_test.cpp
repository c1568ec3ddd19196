// Opening the machine, and its small services: dates and the terminal.
#include <doctest/doctest.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/linux/wine_machine.h"
#include "platform/terminal.h"
#include "support/temp_folder.h"

namespace panelkit {
namespace {

using test::Put;
using test::TempFolder;

/// A variable of the environment for the length of a test. An empty one counts as none.
struct WithVariable {
  WithVariable(const char* variable, const std::string& value) : name(variable) {
    if (const char* const old = std::getenv(name)) before = old;
    Set(value);
  }
  ~WithVariable() { Set(before); }
  void Set(const std::string& value) const { setenv(name, value.c_str(), 1); }
  const char* name;
  std::string before;
};

TEST_CASE("The prefix that holds the simulator is found in the home folder") {
  const TempFolder home;
  const std::string root = home.Path();
  const WithVariable home_variable("HOME", root);
  const WithVariable share("XDG_DATA_HOME", "");
  const WithVariable prefix("WINEPREFIX", "");
  const auto holds_simulator = [](const Machine& machine) {
    return machine.registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, "Simulator") != nullptr;
  };
  const auto origin = [&] { return OpenLocalMachine(holds_simulator)->Origin(); };
  CHECK(origin() == "no Wine prefix at " + root + "/.wine");
  Put(home / ".wine/system.reg", "[Other] 1\n");
  Put(home / ".local/share/Steam/steamapps/compatdata/1/pfx/system.reg", "[Other] 1\n");
  CHECK(origin() == "Wine prefix " + root + "/.wine");

  // From the last place looked at to the first: each newly found one goes before those found so
  // far.
  const std::pair<std::string, std::string> places[] = {
      {".var/app/com.usebottles.bottles/data/bottles/bottles/fs", " (Bottles)"},
      {".local/share/Steam/steamapps/compatdata/2/pfx", " (Steam)"},
      {".PlayOnLinux/wineprefix/fs", " (PlayOnLinux)"},
      {"Games/fs2002/prefix", " (Lutris)"},
      {".wine", ""},
  };
  for (const auto& place : places) {
    Put(home / place.first / "system.reg", "[Simulator] 1\n");
    CHECK(origin() == "Wine prefix " + root + '/' + place.first + place.second);
  }
  prefix.Set(root + "/Games/fs2002/prefix");
  CHECK(origin() == "Wine prefix " + root + "/Games/fs2002/prefix (WINEPREFIX)");
}

TEST_CASE("The prefix's code page is the machine's, under both names of its key") {
  const std::pair<std::string, const char*> cases[] = {{"ControlSet001", "shift_jis"},
                                                       {"CurrentControlSet", "shift_jis"},
                                                       {"Other", "windows-1252"}};
  for (const auto& set : cases) {
    CAPTURE(set.first);
    const TempFolder prefix;
    Put(prefix / "system.reg", "[Software] 1\n\"Path\"=\"\\x30bd\"\n[System\\\\" + set.first +
                                   "\\\\Control\\\\Nls\\\\CodePage] 1\n\"ACP\"=\"932\"\n");
    WineMachine machine(WinePrefix{prefix.Path(), ""}, "/");
    CHECK(machine.Charset() == set.second);
    const Machine services = machine.Services();
    const auto key = services.registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, "Software");
    REQUIRE(key);
    CHECK(key->RegQueryValueExA("Path")->bytes == services.text.ToAnsi("ソ") + '\0');
  }
}

TEST_CASE("Stamps of cabinets become dates, and what names no date is refused") {
  const Calendar calendar;
  FILETIME stamp;
  SYSTEMTIME s;
  REQUIRE(calendar.DosDateTimeToFileTime(0xFF9F, 0xBF7D, stamp));
  REQUIRE(calendar.FileTimeToSystemTime(stamp, s));
  const std::vector<unsigned> fields = {s.wYear, s.wMonth,  s.wDayOfWeek, s.wDay,
                                        s.wHour, s.wMinute, s.wSecond};
  CHECK(fields == std::vector<unsigned>{2107, 12, 6, 31, 23, 59, 58});
  CHECK(calendar.DosDateTimeToFileTime(0x285D, 0, stamp));  // 29 February 2000.
  for (const auto bad_date : {0x0000, 0x2A5D}) {            // The latter a year later.
    CHECK_FALSE(calendar.DosDateTimeToFileTime(static_cast<std::uint16_t>(bad_date), 0, stamp));
  }
  for (const auto bad_time : {24U << 11U, 60U << 5U, 30U}) {
    CHECK_FALSE(
        calendar.DosDateTimeToFileTime(0x2A21, static_cast<std::uint16_t>(bad_time), stamp));
  }
  CHECK_FALSE(calendar.FileTimeToSystemTime({0xFFFFFFFF, 0xFFFFFFFF}, s));
  const WithVariable locale("LC_ALL", "xx_NOWHERE");
  CHECK(calendar.DateText(37257.999999) == "01/02/02 00:00:00");
  CHECK(calendar.DateText(-1.25) == "12/29/99 06:00:00");
  CHECK(calendar.DateText(1e300).empty());
}

TEST_CASE("Text goes out in the terminal's encoding and a failure is told") {
  const TempFolder folder;
  const int terminal = dup(STDOUT_FILENO);
  const auto write_out = [&](const char* locale, const std::string& file) {
    const WithVariable variable("LC_ALL", locale);
    const int target = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(target, STDOUT_FILENO);
    close(target);
    const bool done = terminal::WriteOut("Ü日\xFF|\n") && terminal::WriteOutBytes("\xFC\n");
    dup2(terminal, STDOUT_FILENO);
    return done;
  };
  const std::string file = folder / "out";
  CHECK(write_out("C", file));
  CHECK(test::Get(file) == "???|\n\xFC\n");
  CHECK(write_out("C.UTF-8", file));
  CHECK(test::Get(file) == "Ü日\xFF|\n\xFC\n");
  CHECK_FALSE(write_out("C", "/dev/full"));
  close(terminal);
}

}  // namespace
}  // namespace panelkit
