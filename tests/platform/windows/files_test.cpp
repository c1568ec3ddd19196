#include "platform/files.h"

#include <windows.h>

#include <doctest/doctest.h>

#include "support/machine_here.h"
#include "support/temp_folder.h"

using namespace panelkit;
using test::Get;
using test::Put;
using test::Utf8;

namespace {

/// A listing as one text, "/" behind each name.
std::string Join(const std::optional<std::vector<std::string>>& names) {
  if (!names) return "(none)";
  std::string joined;
  for (const std::string& name : *names) joined += name + "/";
  return joined;
}

struct Disk {
  test::TempFolder folder;
  std::unique_ptr<LocalMachine> machine = test::OpenMachineAt({}, folder.Path());
  Files& files = machine->Services().files;

  std::string At(std::string_view name) const {
    return Utf8(folder.Path()) + "\\" + std::string(name);
  }
};

void SetAttributes(const std::filesystem::path& path, DWORD attributes) {
  REQUIRE(SetFileAttributesW(path.c_str(), attributes));
}

}  // namespace

TEST_CASE_FIXTURE(Disk, "A listing goes by long names, hides what is hidden, and has an order") {
  for (const char* name :
       {"b.gau", "A.GAU", "x.gau_old", "_.gau", "Höhe.gau", "計器.gau", "README"}) {
    Put(folder / name, "");
  }
  Put(folder / "hidden.gau", "");
  SetAttributes(folder / "hidden.gau", FILE_ATTRIBUTE_HIDDEN);
  create_directory(folder / "folder.gau");

  CHECK(Join(files.List(At("*.gau"), ListedEntries::PlainFiles)) ==
        "A.GAU/b.gau/Höhe.gau/_.gau/計器.gau/");
  CHECK(Join(files.List(At("*.*"), ListedEntries::FilesAndFolders)) ==
        "./../A.GAU/b.gau/folder.gau/Höhe.gau/README/x.gau_old/_.gau/計器.gau/");
  CHECK(Join(files.List(At("folder.gau\\\\*.cab"), ListedEntries::PlainFiles)).empty());
  CHECK(Join(files.List(At("absent\\*.*"), ListedEntries::FilesAndFolders)) == "(none)");
  CHECK(Join(files.List(At("README\\*.*"), ListedEntries::FilesAndFolders)) == "(none)");
}

TEST_CASE_FIXTURE(Disk,
                  "Only a real file is a plain file: no folder, hidden file, device or pipe") {
  Put(folder / "sub/ReadMe.txt", "text");
  Put(folder / "hidden", "");
  SetAttributes(folder / "hidden", FILE_ATTRIBUTE_HIDDEN);

  CHECK(files.IsPlainFile(At("SUB//readme.TXT")));
  CHECK(files.Read(At("sub\\readme.txt")) == "text");
  CHECK(files.IsFolder(At("sub\\")));
  CHECK_FALSE(files.IsPlainFile(At("sub")));
  CHECK_FALSE(files.Read(At("sub")));
  CHECK_FALSE(files.IsPlainFile(At("hidden")));
  CHECK(files.Exists(At("hidden")));
  CHECK(files.IsSame(At("sub\\readme.txt"), At("SUB\\..\\sub\\README.txt")));
  CHECK_FALSE(files.IsSame(At("sub"), At("hidden")));
  for (const char* nothing :
       {"CON", "\\\\.\\pipe\\panelkit", "", "a\0b", "C:\\no\\such", "C:\\a?b"}) {
    CAPTURE(nothing);
    CHECK_FALSE(files.Exists(nothing));
    CHECK_FALSE(files.Read(nothing));
    CHECK_FALSE(files.IsSame(nothing, nothing));
  }
}

TEST_CASE_FIXTURE(Disk, "Making a folder tells what stood in its way") {
  Put(folder / "file", "");
  CHECK(files.MakeFolder(At("new")) == kFolderCreated);
  CHECK(files.MakeFolder(At("new\\")) == kFolderExistsOrNoAccess);
  CHECK(files.MakeFolder(At("file")) == kFolderExistsOrNoAccess);
  CHECK(files.MakeFolder(At("absent\\new")) == kFolderParentMissing);
  const int other = files.MakeFolder(At("a*b"));
  CHECK(other != kFolderCreated);
  CHECK(other != kFolderExistsOrNoAccess);
  CHECK(other != kFolderParentMissing);
}

TEST_CASE_FIXTURE(Disk, "A rewrite is whole or not at all, and leaves nothing beside the file") {
  Put(folder / "FS2002.cfg", "old");
  SetAttributes(folder / "FS2002.cfg", FILE_ATTRIBUTE_HIDDEN);
  CHECK(files.Replace(At("fs2002.cfg"), "new", Durability::Flushed));
  CHECK(Get(folder / "FS2002.cfg") == "new");
  CHECK((GetFileAttributesW((folder / "FS2002.cfg").c_str()) & FILE_ATTRIBUTE_HIDDEN) != 0);
  SetAttributes(folder / "FS2002.cfg", FILE_ATTRIBUTE_READONLY);
  CHECK_FALSE(files.Replace(At("fs2002.cfg"), "newer", Durability::Flushed));
  CHECK(Get(folder / "FS2002.cfg") == "new");

  const std::string page(3'000'000, 'x');
  CHECK(files.Replace(At("GAUGES.HTM"), page, Durability::Buffered));
  CHECK(Get(folder / "GAUGES.HTM") == page);
  CHECK_FALSE(files.Replace(At("absent\\GAUGES.HTM"), "", Durability::Buffered));
  CHECK_FALSE(files.Replace(Utf8(folder.Path()), "", Durability::Buffered));
  CHECK(Join(files.List(At("*.*"), ListedEntries::PlainFiles)) == "FS2002.cfg/GAUGES.HTM/");
}

TEST_CASE_FIXTURE(Disk, "A gauge moves by copy, rename and delete, and an older copy gives way") {
  Put(folder / "Gauges/abc.GAU", "gauge");
  Put(folder / "Spare/ABC.gau", "older");
  const auto year = std::chrono::hours(24 * 365);
  last_write_time(folder / "Gauges/abc.GAU", last_write_time(folder / "Spare/ABC.gau") - year);
  const auto stamp = last_write_time(folder / "Gauges/abc.GAU");  // as the disk holds it
  SetAttributes(folder / "Gauges/abc.GAU", FILE_ATTRIBUTE_READONLY);
  SetAttributes(folder / "Spare/ABC.gau", FILE_ATTRIBUTE_READONLY);

  CHECK(files.Copy(At("Gauges\\abc.GAU"), At("Spare\\~abc.tmp")));
  CHECK(files.Rename(At("Spare\\~abc.tmp"), At("Spare\\abc.gau")));
  CHECK_FALSE(files.Delete(At("Gauges\\abc.GAU")));
  CHECK(files.ClearAttributes(At("Gauges\\abc.GAU")));
  CHECK(files.Delete(At("Gauges\\abc.GAU")));

  CHECK(Get(folder / "Spare/abc.gau") == "gauge");
  CHECK(last_write_time(folder / "Spare/abc.gau") == stamp);
  CHECK(Join(files.List(At("Spare\\*.*"), ListedEntries::PlainFiles)) == "abc.gau/");
  CHECK(Join(files.List(At("Gauges\\*.*"), ListedEntries::PlainFiles)).empty());

  CHECK_FALSE(files.Copy(At("Spare\\abc.gau"), At("SPARE\\ABC.GAU")));  // onto itself
  CHECK(Get(folder / "Spare/abc.gau") == "gauge");
  CHECK_FALSE(files.Copy(At("absent"), At("Spare\\abc.gau")));
  CHECK_FALSE(files.Delete(At("Spare")));
}

TEST_CASE_FIXTURE(Disk, "Paths beyond 260 characters are paths like others") {
  const std::string name(100, 'n');
  std::string path = Utf8(folder.Path());
  for (int i = 0; i < 3; ++i) REQUIRE(files.MakeFolder(path += "\\" + name) == kFolderCreated);
  CHECK(files.Replace(path + "\\a.gau", "1", Durability::Flushed));
  CHECK(files.Replace(path + "\\a.gau", "2", Durability::Flushed));
  CHECK(files.Copy(path + "\\a.gau", path + "\\b.gau"));
  CHECK(Join(files.List(path + "\\*.gau", ListedEntries::PlainFiles)) == "a.gau/b.gau/");
  CHECK(files.Read(path + "\\b.gau") == "2");
  for (const char* file : {"\\a.gau", "\\b.gau"}) CHECK(files.Delete(path + file));
}
