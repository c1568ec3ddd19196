// Opening the machine, and its small services: dates and the terminal.
#include <doctest/doctest.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "platform/linux/wine_machine.h"
#include "platform/terminal.h"
#include "support/temp_folder.h"

namespace panelkit {
namespace {

using test::Get;
using test::Put;
using test::TempFolder;

/// A variable of the environment for the length of a test; none where `value` is null.
struct WithVariable {
  WithVariable(const char* variable, const char* value) : name(variable) {
    if (const char* const old = std::getenv(name)) before = old;
    Set(value);
  }
  ~WithVariable() { Set(before ? before->c_str() : nullptr); }
  void Set(const char* value) const {
    if (value) {
      setenv(name, value, 1);
    } else {
      unsetenv(name);
    }
  }
  const char* name;
  std::optional<std::string> before;
};

bool HoldsSimulator(const Machine& machine) {
  return machine.registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, "Software\\Simulator") != nullptr;
}

TEST_CASE("The prefix that holds the simulator is found in the home folder") {
  const TempFolder home;
  const WithVariable home_variable("HOME", home.Path().c_str());
  const WithVariable share("XDG_DATA_HOME", nullptr);
  const WithVariable prefix("WINEPREFIX", nullptr);
  const std::string root = home.Path();
  const auto origin = [] { return OpenLocalMachine(HoldsSimulator)->Origin(); };
  CHECK(origin() == "no Wine prefix at " + root + "/.wine");

  const std::string other = "[Software\\\\Other] 1\n";
  const std::string simulator = "[Software\\\\Simulator] 1\n";
  Put(home / ".wine/system.reg", other);
  Put(home / ".local/share/Steam/steamapps/compatdata/1/pfx/system.reg", other);
  CHECK(origin() == "Wine prefix " + root + "/.wine");

  // From the last place looked at to the first: each newly found one goes before those found so
  // far.
  const std::pair<const char*, const char*> places[] = {
      {".var/app/net.lutris.Lutris/data/lutris/prefixes/fs", "Lutris"},
      {".var/app/com.usebottles.bottles/data/bottles/bottles/fs", "Bottles"},
      {".local/share/Steam/steamapps/compatdata/2/pfx", "Steam"},
      {".local/share/bottles/bottles/fs", "Bottles"},
      {".PlayOnLinux/wineprefix/fs", "PlayOnLinux"},
      {"Games/fs2002/prefix", "Lutris"},
      {"Games/fs2002", "Lutris"},
  };
  for (const auto& place : places) {
    CAPTURE(place.first);
    Put(home / place.first / "system.reg", simulator);
    CHECK(origin() == "Wine prefix " + root + '/' + place.first + " (" + place.second + ')');
  }
  prefix.Set((root + "/.wine").c_str());
  CHECK(origin() == "Wine prefix " + root + "/.wine (WINEPREFIX)");
  CHECK(OpenLocalMachine(HoldsSimulator)->Services().files.AppFolder().starts_with("Z:\\"));
  prefix.Set(nullptr);
  Put(home / ".wine/system.reg", simulator);
  CHECK(origin() == "Wine prefix " + root + "/.wine");
}

TEST_CASE("The prefix's code page is the machine's") {
  const TempFolder prefix;
  Put(prefix / "system.reg",
      "[System\\\\ControlSet001\\\\Control\\\\Nls\\\\CodePage] 1\n\"ACP\"=\"932\"\n\n"
      "[Software\\\\\\x30bd] 1\n\"Path\"=\"C:\\\\\\x30bd\"\n");
  WineMachine machine(WinePrefix{prefix.Path(), ""}, "/");
  CHECK(machine.Charset() == "shift_jis");
  const auto key =
      machine.Services().registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, "Software\\ソ");
  REQUIRE(key);
  CHECK(key->RegQueryValueExA("Path")->bytes == std::string("C:\\\x83\x5C\0", 6));
}

TEST_CASE("Stamps of cabinets become dates, and what names no date is refused") {
  const Calendar calendar;
  const auto shown = [&calendar](unsigned date, unsigned time) {
    FILETIME stamp;
    SYSTEMTIME s;
    if (!calendar.DosDateTimeToFileTime(static_cast<std::uint16_t>(date),
                                        static_cast<std::uint16_t>(time), stamp) ||
        !calendar.FileTimeToSystemTime(stamp, s)) {
      return std::string("none");
    }
    std::string text;
    for (const auto field :
         {s.wYear, s.wMonth, s.wDayOfWeek, s.wDay, s.wHour, s.wMinute, s.wSecond}) {
      text += std::to_string(field) + ' ';
    }
    return text;
  };
  const auto date = [](unsigned year, unsigned month, unsigned day) {
    return (year - 1980) << 9U | month << 5U | day;
  };
  CHECK(shown(date(2002, 1, 1), 12U << 11U) == "2002 1 2 1 12 0 0 ");
  CHECK(shown(date(2107, 12, 31), 23U << 11U | 59U << 5U | 29U) == "2107 12 6 31 23 59 58 ");
  CHECK(shown(date(2000, 2, 29), 0) == "2000 2 2 29 0 0 0 ");
  for (const unsigned bad : {0U, date(2001, 2, 29), date(2001, 13, 1), date(2001, 4, 31)}) {
    CHECK(shown(bad, 0) == "none");
  }
  for (const unsigned bad : {24U << 11U, 60U << 5U, 30U})
    CHECK(shown(date(2001, 1, 1), bad) == "none");

  SYSTEMTIME time;
  CHECK(calendar.FileTimeToSystemTime({0, 0}, time));
  CHECK(time.wYear == 1601);
  CHECK(calendar.FileTimeToSystemTime({0, 0x7FFF0000}, time));
  CHECK(time.wYear == 30827);
  CHECK_FALSE(calendar.FileTimeToSystemTime({0xFFFFFFFF, 0xFFFFFFFF}, time));

  const WithVariable locale("LC_ALL", "xx_NOWHERE");
  CHECK(calendar.DateText(37257.0) == "01/01/02 00:00:00");
  CHECK(calendar.DateText(37257.999999) == "01/02/02 00:00:00");
  CHECK(calendar.DateText(-1.25) == "12/29/99 06:00:00");
  CHECK(calendar.DateText(1e300).empty());
}

TEST_CASE("Text goes out in the terminal's encoding and a failure is told") {
  const TempFolder folder;
  const int terminal = dup(STDOUT_FILENO);
  const auto written = [&](const char* locale, const char* file) {
    const WithVariable variable("LC_ALL", locale);
    const int target = open(file, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(target, STDOUT_FILENO);
    close(target);
    const bool done = terminal::WriteOut("Ü日\xFF|\n") && terminal::WriteOutBytes("\xFC\n");
    dup2(terminal, STDOUT_FILENO);
    return done;
  };
  const std::string file = folder / "out";
  CHECK(written("C", file.c_str()));
  CHECK(Get(file) == "???|\n\xFC\n");
  CHECK(written("C.UTF-8", file.c_str()));
  CHECK(Get(file) == "Ü日\xFF|\n\xFC\n");
  CHECK_FALSE(written("C", "/dev/full"));
  int ends[2] = {};
  REQUIRE(pipe(ends) == 0);
  close(ends[0]);
  CHECK_FALSE(written("C", ("/proc/self/fd/" + std::to_string(ends[1])).c_str()));
  close(ends[1]);
  close(terminal);
}

}  // namespace
}  // namespace panelkit
