// Opening the machine, and its small services: dates and the terminal.
#include <doctest/doctest.h>
#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdlib>

#include "platform/disk.h"
#include "platform/registry_text.h"
#include "platform/terminal.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

TEST_CASE("The prefix that holds the simulator is found in the home folder") {
  const TempFolder home;
  const std::string root = home.Path();
  setenv("HOME", root.c_str(), 1);
  setenv("XDG_DATA_HOME", "", 1);
  setenv("WINEPREFIX", "", 1);
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
      {".local/share/lutris/runners/winesteam/prefix64", " (Lutris)"},
      {".PlayOnLinux/wineprefix/fs", " (PlayOnLinux)"},
      {"Games/fs2002/prefix", " (Lutris)"},
      {".wine", ""},
  };
  for (const auto& place : places) {
    Put(home / place.first / "system.reg", "[Simulator] 1\n");
    CHECK(origin() == "Wine prefix " + root + '/' + place.first + place.second);
  }
  setenv("WINEPREFIX", (root + "/Games/fs2002/prefix").c_str(), 1);
  CHECK(origin() == "Wine prefix " + root + "/Games/fs2002/prefix (WINEPREFIX)");
}

TEST_CASE(
    "Own files lie beside the program, or in the user's folder if that place is not for them") {
  const TempFolder home;
  const std::string root = home.Path();
  setenv("HOME", root.c_str(), 1);
  setenv("XDG_DATA_HOME", "relative", 1);
  const std::string data = root + "/.local/share/panelkit";
  const auto folders = [&](const char* program) {
    const auto machine = OpenMachineAt(home.Path(), home.Path() / program);
    std::string told = machine->NativePath(machine->Services().files.AppFolder());
    for (const auto& folder : machine->FoldersOfOwnFiles())
      told += '|' + machine->NativePath(folder);
    return Replaced(told + '|' + machine->NativePath(machine->PictureFolder()), root, "~");
  };
  fs::create_directory(home / "Panelkit");
  CHECK(folders("Panelkit") == "~/Panelkit|~/Panelkit|~/Panelkit");
  // A folder that is not there stands for one that is closed to us, which root never meets.
  CHECK(folders("closed") == "~/.local/share/panelkit|~/.local/share/panelkit|~/closed");
  CHECK((fs::status(data).permissions() & fs::perms::mask) == fs::perms::owner_all);
  CHECK(folders("Panelkit") == "~/Panelkit|~/Panelkit|~/.local/share/panelkit|~/Panelkit");
  setenv("XDG_DATA_HOME", (root + "/data").c_str(), 1);
  Put(home / "usr/share/panelkit/easy.gif", "");
  fs::create_directory(home / "usr/bin");
  CHECK(folders("usr/bin") == "~/data/panelkit|~/data/panelkit|~/usr/bin|~/usr/share/panelkit");
  const auto machine = OpenMachineAt(home.Path(), home / "usr/bin");
  CHECK(machine->Services().files.UserFolder() == machine->Services().files.AppFolder());
  setenv("XDG_DATA_HOME", (root + "/usr/share/panelkit/easy.gif").c_str(), 1);
  CHECK(OpenMachineAt(home.Path(), home / "Panelkit")->Services().files.UserFolder().empty());
}

TEST_CASE("The prefix's code page is the machine's, under both names of its key") {
  const std::array<std::string, 3> cases[] = {{"ControlSet001", "932", "shift_jis"},
                                              {"CurrentControlSet", "932", "shift_jis"},
                                              {"CurrentControlSet", "54321", "windows-1252"},
                                              {"Other", "932", "windows-1252"}};
  for (const auto& [set, page, charset] : cases) {
    const TempFolder prefix;
    Put(prefix / "system.reg", "[Software] 1\n\"Path\"=\"\\x30bd\"\n[System\\\\" + set +
                                   "\\\\Control\\\\Nls\\\\CodePage] 1\n\"ACP\"=\"" + page + "\"\n");
    const auto machine = OpenMachineAt(prefix.Path(), "/");
    CHECK(machine->Charset() == charset);
    const Machine services = machine->Services();
    CHECK(Value(services.registry, "Software", "Path") == "1 " + services.text.ToAnsi("ソ") + '$');
  }
}

TEST_CASE_FIXTURE(Disk, "A date's text has the time also at midnight, and needs no locale") {
  setenv("LC_ALL", "xx_NOWHERE", 1);
  const DateStamps& dates = machine->Services().dates;
  CHECK(dates.DateText(37257.999999) == "01/02/02 00:00:00");
  CHECK(dates.DateText(-1.25) == "12/29/99 06:00:00");
  CHECK(dates.DateText(1e300).empty());
}

TEST_CASE("Text goes out in the terminal's encoding and a failure is told") {
  const TempFolder folder;
  const auto written = [&](const char* locale, const std::string& file) {
    setenv("LC_ALL", locale, 1);
    const int terminal = dup(STDOUT_FILENO);
    const int target = open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    dup2(target, STDOUT_FILENO);
    close(target);
    const bool done = terminal::WriteOut("Ü日\xFF|\n") && terminal::WriteOutBytes("\xFC\n");
    dup2(terminal, STDOUT_FILENO);
    close(terminal);
    return done ? Get(file) : "failed";
  };
  CHECK(written("POSIX", folder / "out") == "Ü日\xFF|\n\xFC\n");
  CHECK(written("C.UTF-8", folder / "out") == "Ü日\xFF|\n\xFC\n");
  CHECK(written("C", "/dev/full") == "failed");
}

}  // namespace
}  // namespace panelkit::test
