// Drives and paths of a prefix.
#include <doctest/doctest.h>

#include <algorithm>
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
  explicit InFolder(const fs::path& folder) { fs::current_path(folder); }
  ~InFolder() { fs::current_path(before); }
  fs::path before = fs::current_path();
};

TEST_CASE("A Windows path reaches its file whatever its case, separators and drive") {
  const TempFolder prefix;
  const TempFolder elsewhere;
  const fs::path games = prefix / "drive_c/Program Files";
  Put(games / "FS2002/Ünal 747/Panel.cfg", "panel");
  Put(games / "trailing. /x", "x");
  Put(prefix / "dosdevices/unc/nas/games/fs.cfg", "share");
  fs::create_directory_symlink(elsewhere.Path(), prefix / "dosdevices/d:");
  for (const char* name : {"Two/Upper", "two/lower", "Both", "both"}) Put(elsewhere / name, "x");
  const PathResolver resolver(prefix.Path().native());
  const std::string panel = games / "FS2002/Ünal 747/Panel.cfg";
  const InFolder in(games);
  const std::pair<std::string, std::string> cases[] = {
      {R"(c:/PROGRAM FILES\\fs2002//.\x\..\üNAL 747\panel.CFG)", panel},
      {R"(C:\..\program files\fs2002\ünal 747\panel.cfg. .)", panel},
      {R"(fs2002\ÜNAL 747\panel.cfg)", panel},
      {R"(\program files\FS2002\Ünal 747\panel.cfg)", panel},
      {R"(C:\Program Files\trailing. )", games / "trailing. "},
      {R"(\\NAS\Games\fs.cfg)", prefix / "dosdevices/unc/nas/games/fs.cfg"},
      {R"(D:\two\LOWER)", elsewhere / "two/lower"},
      {R"(D:\BOTH)", elsewhere / "Both"},
      {"C:", prefix / "drive_c"},
      {"Z:\\", "/"},
      {R"(\\server\share\x)", ""},
      {std::string("C:\\Program Files\0x", 18), ""},
      {"C:\\" + std::string(5000, 'x'), ""},
      {R"(D:\both\x)", ""},
  };
  for (const auto& path : cases) {
    CAPTURE(path.first);
    CHECK(resolver.Existing(path.first).value_or("") == path.second);
  }
  CHECK(resolver.ForCreation(R"(D:\BOTH)") == (elsewhere / "Both").native());
  CHECK(resolver.SpeltExactly(R"(D:\BOTH. )") == (elsewhere / "BOTH").native());
  CHECK(resolver.ForCreation(R"(c:\program FILES\New)") == (games / "New").native());
  for (const char* impossible : {R"(D:\a?b)", R"(D:\a:b)", R"(D:\ ..)", R"(D:\no\x)", "D:"}) {
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
  const fs::path app = prefix / "drive_c/日本/Panelkit";
  for (const fs::path& folder : {app, prefix / "dosdevices", data / "games"}) {
    fs::create_directories(folder);
  }
  fs::create_directory_symlink("../drive_c", prefix / "dosdevices/c:");
  fs::create_directory_symlink(data.Path(), data / "link");
  fs::create_directory_symlink(data / "link/games", prefix / "dosdevices/g:");
  const auto machine = test::OpenMachineAt(prefix.Path(), app);
  CHECK(machine->Services().files.AppFolder() == R"(C:\日本\Panelkit)");
  CHECK(test::OpenMachineAt(prefix.Path(), "/")->Services().files.AppFolder() == "Z:");

  std::string z = "Z:" + data.Path().native();
  std::replace(z.begin(), z.end(), '/', '\\');
  const InFolder in(data.Path());
  const std::pair<std::string, std::string> typed[] = {
      {data / "games/a/b.cab", R"(G:\a\b.cab)"},
      {data / "x//y/", z + R"(\x\y)"},
      {R"(..\)" + data.Path().filename().native() + R"(\games)", "G:"},
      {"b.cab", z + R"(\b.cab)"},
      {R"(\\nas\games)", R"(\\nas\games)"},
  };
  for (const auto& path : typed) {
    CAPTURE(path.first);
    CHECK(machine->WindowsPath(path.first) == path.second);
  }
  CHECK(machine->NativePath(R"(C:\日本\PANELKIT\new.htm)") == (app / "new.htm").native());
  CHECK(machine->NativePath(R"(Q:\x)") == R"(Q:\x)");
}

}  // namespace
}  // namespace panelkit
