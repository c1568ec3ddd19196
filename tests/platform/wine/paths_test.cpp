// Drives and paths of a prefix.
#include <doctest/doctest.h>

#include "support/machine_here.h"
#include "support/temp_folder.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

TEST_CASE("A Windows path reaches its file whatever its case, separators and drive, and back") {
  const TempFolder prefix;
  const TempFolder disk;
  const fs::path games = prefix / "drive_c/Program Files";
  const fs::path panel = games / "FS2002/Ünal 747/Panel.cfg";
  const fs::path share = prefix / "dosdevices/unc/nas/games/fs.cfg";
  for (const fs::path& file : {panel, share, games / "trailing. /x", disk / "Two/Upper",
                               disk / "two/lower", disk / "Both", disk / "both", disk / "g/x"}) {
    Put(file, "x");
  }
  fs::create_directory_symlink("../drive_c", prefix / "dosdevices/c:");
  fs::create_directory_symlink(disk.Path(), prefix / "dosdevices/d:");
  fs::create_directory_symlink(disk.Path(), disk / "link");
  fs::create_directory_symlink(disk / "link/g", prefix / "dosdevices/g:");
  fs::create_directory(games / "日本");
  const auto machine = OpenMachineAt(prefix.Path(), games / "日本");
  CHECK(machine->Services().files.AppFolder() == R"(C:\Program Files\日本)");

  const fs::path before = fs::current_path();
  fs::current_path(games);
  const std::pair<std::string, fs::path> reached[] = {
      {R"(c:/PROGRAM FILES\\fs2002//.\x\..\üNAL 747\panel.CFG)", panel},
      {R"(C:\..\program files\fs2002\ünal 747\panel.cfg. .)", panel},
      {R"(fs2002\ÜNAL 747\panel.cfg)", panel},
      {R"(\program files\FS2002\Ünal 747\panel.cfg)", panel},
      {R"(C:\Program Files\trailing. )", games / "trailing. "},
      {R"(c:\program FILES\New)", games / "New"},
      {R"(\\NAS\Games\fs.cfg)", share},
      {R"(D:\two\LOWER)", disk / "two/lower"},
      {R"(D:\BOTH)", disk / "Both"},
      {"Z:\\", "/"},
  };
  for (const auto& path : reached) {
    CAPTURE(path.first);
    CHECK(machine->NativePath(path.first) == path.second);
  }
  for (const std::string& nowhere :
       {std::string(R"(\\server\share\x)"), std::string("C:\\Program Files\0x", 18),
        std::string(R"(D:\both\x)"), std::string(R"(D:\a?b)"), std::string(R"(D:\a:b)"),
        std::string(R"(D:\ ..)"), std::string(R"(Q:\x)")}) {
    CHECK(machine->NativePath(nowhere) == nowhere);
  }
  const std::pair<std::string, std::string> typed[] = {
      {disk / "g/a/b.cab", R"(G:\a\b.cab)"},
      {disk / "x//y/", R"(D:\x\y)"},
      {"/usr/b.cab", R"(Z:\usr\b.cab)"},
      {"/", "Z:"},
      {"../Program Files/b.cab", R"(C:\Program Files\b.cab)"},
      {"b.cab", R"(C:\Program Files\b.cab)"},
      {R"(\\nas\games)", R"(\\nas\games)"},
  };
  for (const auto& path : typed) {
    CAPTURE(path.first);
    CHECK(machine->WindowsPath(path.first) == path.second);
  }
  fs::current_path(before);
}

TEST_CASE("The program's files are found where Z: leads elsewhere than to the root") {
  const TempFolder prefix;
  const TempFolder disk;
  Put(disk / "app/easy.gif", "x");
  Put(prefix / "other/x", "x");
  fs::create_directories(prefix / "dosdevices");
  fs::create_directory_symlink("../other", prefix / "dosdevices/z:");
  const auto machine = OpenMachineAt(prefix.Path(), disk / "app");
  Files& files = machine->Services().files;
  // Wine's own way to a path that no drive holds.
  CHECK(files.AppFolder() == R"(\\?\unix)" + Replaced(disk / "app", "/", "\\"));
  CHECK(machine->AppFolderOrigin() ==
        "the program's own folder, to which no drive of the prefix leads");
  CHECK(files.Replace(files.AppFolder() + "\\GAUGES.HTM", "page", Durability::Buffered) ==
        FileFault::None);
  CHECK(files.Read(files.AppFolder() + "\\gauges.htm").bytes == "page");
  CHECK(machine->NativePath(files.AppFolder() + "\\EASY.gif") == disk / "app/easy.gif");
  CHECK(machine->WindowsPath((prefix / "other/x").native()) == R"(Z:\x)");
  // A drive that leads to it is taken.
  fs::create_directory_symlink("/", prefix / "dosdevices/r:");
  const auto again = OpenMachineAt(prefix.Path(), disk / "app");
  CHECK(again->Services().files.AppFolder() == "R:" + Replaced(disk / "app", "/", "\\"));
  CHECK(again->AppFolderOrigin() == "the program's own folder");
}

}  // namespace
}  // namespace panelkit::test
