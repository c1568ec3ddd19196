// Drives and paths of a prefix.
#include <doctest/doctest.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "platform/linux/path_resolver.h"
#include "support/machine_here.h"
#include "support/temp_folder.h"

namespace panelkit {
namespace {

namespace fs = std::filesystem;
using test::Put;
using test::TempFolder;

/// Runs with another current folder.
struct InFolder {
  explicit InFolder(const fs::path& folder) : before(fs::current_path()) {
    fs::current_path(folder);
  }
  ~InFolder() { fs::current_path(before); }
  fs::path before;
};

TEST_CASE("A Windows path reaches its file whatever its case, separators and drive") {
  const TempFolder prefix;
  const TempFolder elsewhere;
  Put(prefix / "drive_c/Program Files/FS2002/Aircraft/Ünal 747/Panel/Panel.cfg", "panel");
  Put(prefix / "drive_c/Program Files/FS2002/Aircraft/trailing. /x", "x");
  Put(prefix / "dosdevices/unc/nas/games/fs.cfg", "share");
  fs::create_directory_symlink(elsewhere.Path(), prefix / "dosdevices/d:");
  Put(elsewhere / "Two/File", "upper");
  Put(elsewhere / "two/File", "lower");
  Put(elsewhere / "Both", "upper");
  Put(elsewhere / "both", "lower");
  const PathResolver resolver(prefix.Path().native());
  const std::string c = prefix.Path() / "drive_c";
  const std::string panel = c + "/Program Files/FS2002/Aircraft/Ünal 747/Panel/Panel.cfg";
  const InFolder in(prefix / "drive_c/Program Files");
  const std::pair<std::string, std::string> cases[] = {
      {R"(C:\Program Files\FS2002\Aircraft\Ünal 747\Panel\Panel.cfg)", panel},
      {R"(c:/PROGRAM FILES\\fs2002//.\AIRCRAFT\x\..\üNAL 747\panel\PANEL.CFG)", panel},
      {R"(C:\..\program files\fs2002\aircraft\ünal 747\panel\panel.cfg. .)", panel},
      {R"(fs2002\aircraft\ÜNAL 747\panel\panel.cfg)", panel},
      {R"(\program files\FS2002\Aircraft\Ünal 747\Panel\panel.cfg)", panel},
      {"z:" + panel, panel},
      {R"(C:\Program Files\FS2002\Aircraft\trailing. )",
       c + "/Program Files/FS2002/Aircraft/trailing. "},
      {R"(\\NAS\Games\fs.cfg)", prefix.Path() / "dosdevices/unc/nas/games/fs.cfg"},
      {R"(D:\two\FILE)", elsewhere / "two/File"},
      {R"(D:\both)", elsewhere / "both"},
      {R"(D:\BOTH)", elsewhere / "Both"},
      {"C:", c},
      {"Z:\\", "/"},
      {R"(E:\both)", ""},
      {R"(\\server\share\x)", ""},
      {std::string("C:\\Program Files\0x", 18), ""},
      {"C:\\" + std::string(5000, 'x'), ""},
      {R"(C:\Program Files\FS2002\Aircraft\Ünal 747\Panel\Panel.cfg\x)", ""},
      {"", ""},
  };
  for (const auto& path : cases) {
    CAPTURE(path.first);
    CHECK(resolver.Existing(path.first).value_or("") == path.second);
  }
  CHECK(resolver.ForCreation(R"(D:\BOTH)") == (elsewhere / "Both").native());
  CHECK(resolver.SpeltExactly(R"(D:\BOTH. )") == (elsewhere / "BOTH").native());
  CHECK(resolver.ForCreation(R"(c:\program FILES\New)") == c + "/Program Files/New");
  for (const char* impossible :
       {R"(D:\a?b)", R"(D:\a:b)", R"(D:\ ..)", "D:\\\t", R"(D:\no\x)", "D:"}) {
    CAPTURE(impossible);
    CHECK_FALSE(resolver.ForCreation(impossible));
  }
}

TEST_CASE("A file that appears or goes is seen at once, in other case too") {
  const TempFolder prefix;
  const PathResolver resolver(prefix.Path().native());
  // As on a disk whose time stamps move in large steps: no change shows in this one.
  const auto stamp = fs::file_time_type::clock::now() + std::chrono::hours(1);
  const auto seen = [&] {
    fs::last_write_time(prefix / "drive_c", stamp);
    return resolver.Existing(R"(C:\FILE.GAU)").has_value();
  };
  fs::create_directories(prefix / "drive_c");
  CHECK_FALSE(seen());
  Put(prefix / "drive_c/File.gau", "x");
  CHECK(seen());
  fs::remove(prefix / "drive_c/File.gau");
  CHECK_FALSE(seen());
}

TEST_CASE("Native paths become Windows paths through the closest drive, and back") {
  const TempFolder prefix;
  const TempFolder data;
  fs::create_directories(prefix / "drive_c/日本/Panelkit");
  fs::create_directories(prefix / "dosdevices");
  fs::create_directory_symlink("../drive_c", prefix / "dosdevices/c:");
  fs::create_directories(data / "games");
  fs::create_directory_symlink(data.Path(), data / "link");
  fs::create_directory_symlink(data / "link/games", prefix / "dosdevices/g:");
  const auto machine = test::OpenMachineAt(prefix.Path(), prefix / "drive_c/日本/Panelkit");
  CHECK(machine->Services().files.AppFolder() == R"(C:\日本\Panelkit)");
  CHECK(test::OpenMachineAt(prefix.Path(), "/")->Services().files.AppFolder() == "Z:");
  CHECK(test::OpenMachineAt(prefix.Path(), data / "games")->Services().files.AppFolder() == "G:");

  std::string z = "Z:" + data.Path().native();
  for (char& c : z) c = c == '/' ? '\\' : c;
  const InFolder in(data.Path());
  const std::pair<std::string, std::string> typed[] = {
      {data / "games/a/b.cab", R"(G:\a\b.cab)"},
      {data / "x//y/", z + R"(\x\y)"},
      {"games/b.cab", R"(G:\b.cab)"},
      {R"(..\)" + data.Path().filename().native() + R"(\games)", "G:"},
      {"b.cab", z + R"(\b.cab)"},
      {R"(D:\x)", R"(D:\x)"},
      {R"(\\nas\games)", R"(\\nas\games)"},
  };
  for (const auto& path : typed) {
    CAPTURE(path.first);
    CHECK(machine->WindowsPath(path.first) == path.second);
  }
  CHECK(machine->NativePath(R"(C:\日本\PANELKIT\new.htm)") ==
        (prefix / "drive_c/日本/Panelkit/new.htm").native());
  CHECK(machine->NativePath(R"(Q:\x)") == R"(Q:\x)");
}

}  // namespace
}  // namespace panelkit
