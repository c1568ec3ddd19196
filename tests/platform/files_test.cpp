// What the files of every machine promise.
#include <doctest/doctest.h>

#include "platform/disk.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

constexpr auto kAnyWrite =
    fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;

void MakeReadOnly(const fs::path& file) {
  fs::permissions(file, kAnyWrite, fs::perm_options::remove);
}

TEST_CASE_FIXTURE(Disk, "A listing goes by long names, hides what is hidden, and has an order") {
  for (const char* name : {"b.gau", "A.GAU", "b_x.GAU", "Bax.gau", "x.gau_old", "Höhe.gau",
                           "計器.gau", "README", "hidden.gau", "folder.gau/inside"}) {
    Put(folder / name, "");
  }
  Hide(folder / "hidden.gau");
  const std::string gauges = "A.GAU b.gau Bax.gau b_x.GAU ";
  CHECK(List("*.gau", ListedEntries::PlainFiles) == gauges + "Höhe.gau 計器.gau ");
  CHECK(List("*.*", ListedEntries::FilesAndFolders) ==
        ". .. " + gauges + "folder.gau Höhe.gau README x.gau_old 計器.gau ");
  CHECK(List("FOLDER.gau\\\\*", ListedEntries::PlainFiles) == "inside ");
  CHECK(List("folder.gau\\*.cab", ListedEntries::PlainFiles).empty());
  CHECK(List("absent\\*.*", ListedEntries::FilesAndFolders) == "(none)");
  CHECK(List("README\\*.*", ListedEntries::FilesAndFolders) == "(none)");
}

TEST_CASE_FIXTURE(Disk, "The kinds of files are told apart") {
  Put(folder / "sub/ReadMe.txt", "text");
  Put(folder / "hidden", "x");
  Hide(folder / "hidden");
  Put(folder / "huge", "");
  fs::resize_file(folder / "huge", kLargestFile + 1);
  const auto told = [this](const std::string& path) {
    return std::string(files.Exists(path) ? "there" : "absent") +
           (files.IsFolder(path) ? ", folder" : "") + (files.IsPlainFile(path) ? ", plain" : "") +
           (files.IsSame(path, At("sub\\readme.txt")) ? ", same" : "") + ": " +
           files.Read(path).value_or("unread");
  };
  CHECK(told(At("SUB//.\\x\\..\\readme.TXT")) == "there, plain, same: text");
  CHECK(told(At("hidden")) == "there: x");
  CHECK(told(At("huge")) == "there, plain: unread");
  CHECK(told(At("Sub\\")) == "there, folder: unread");
  for (const std::string& nothing :
       {std::string(), At("absent"), At("no\\such"), At("a?b"), At({"hidden\0b", 8}),
        std::string("CON"), std::string(R"(\\.\pipe\panelkit)")}) {
    CAPTURE(nothing);
    CHECK(told(nothing) == "absent: unread");
    CHECK_FALSE(files.IsSame(nothing, nothing));
  }
}

TEST_CASE_FIXTURE(Disk, "Making a folder tells what stood in its way") {
  Put(folder / "file", "");
  const std::pair<std::string, int> outcomes[] = {{"new", kFolderCreated},
                                                  {"NEW\\", kFolderExistsOrNoAccess},
                                                  {"File", kFolderExistsOrNoAccess},
                                                  {"absent\\new", kFolderParentMissing},
                                                  {"file\\new", kFolderParentMissing}};
  for (const auto& [name, outcome] : outcomes) CHECK(files.MakeFolder(At(name)) == outcome);
  for (const std::string& name : {std::string("a?b"), std::string(300, 'x')}) {
    const int other = files.MakeFolder(At(name));
    CHECK((other != 0 && other != kFolderExistsOrNoAccess && other != kFolderParentMissing));
  }
  CHECK(Tree() == "file new ");
}

TEST_CASE_FIXTURE(Disk, "A rewrite is whole or not at all, and leaves nothing beside the file") {
  Put(folder / "FS2002.cfg", "old");
  Hide(folder / "FS2002.cfg");
  CHECK(files.Replace(At("fs2002.cfg"), "new", Durability::Flushed));
  CHECK(Get(folder / "FS2002.cfg") == "new");
  CHECK_FALSE(files.IsPlainFile(At("FS2002.cfg")));
  MakeReadOnly(folder / "FS2002.cfg");
  CHECK_FALSE(files.Replace(At("fs2002.cfg"), "newer", Durability::Flushed));
  CHECK(Get(folder / "FS2002.cfg") == "new");

  const std::string page(3'000'000, 'x');
  CHECK(files.Replace(At("GAUGES.HTM"), page, Durability::Buffered));
  CHECK(Get(folder / "GAUGES.HTM") == page);
  CHECK_FALSE(files.Replace(At("absent\\GAUGES.HTM"), "", Durability::Buffered));
  CHECK_FALSE(files.Replace(files.AppFolder(), "", Durability::Buffered));
  CHECK(Tree() == "FS2002.cfg GAUGES.HTM ");
}

TEST_CASE_FIXTURE(Disk, "A gauge moves by copy, rename and delete, and an older copy gives way") {
  const std::string content(300'000, 'g');
  const fs::path source = folder / "Gauges/abc.GAU";
  Put(source, content);
  Put(folder / "Spare/ABC.gau", "older");
  fs::last_write_time(source, fs::last_write_time(source) - std::chrono::hours(24 * 365));
  const auto stamp = fs::last_write_time(source);  // As the disk holds it.
  MakeReadOnly(source);
  MakeReadOnly(folder / "Spare/ABC.gau");
  CHECK(files.Copy(At("Gauges\\abc.gau"), At("Spare\\moving")));
  CHECK(files.Rename(At("Spare\\moving"), At("SPARE\\abc.gau")));
  CHECK_FALSE(files.Delete(At("Gauges\\abc.gau")));
  CHECK(files.ClearAttributes(At("Gauges\\abc.gau")));
  CHECK(files.Delete(At("Gauges\\abc.gau")));
  CHECK(Tree() == "Gauges Spare Spare/abc.gau ");
  CHECK(Get(folder / "Spare/abc.gau") == content);
  CHECK(fs::last_write_time(folder / "Spare/abc.gau") == stamp);
  CHECK((fs::status(folder / "Spare/abc.gau").permissions() & kAnyWrite) == fs::perms::none);
  CHECK(files.Rename(At("Spare\\abc.gau"), At("Spare\\Abc.GAU")));

  // Steps that cannot be taken lose nothing.
  CHECK_FALSE(files.Copy(At("Spare\\abc.gau"), At("SPARE\\ABC.GAU")));
  CHECK_FALSE(files.Copy(At("Spare\\abc.gau"), At("gauges")));
  CHECK_FALSE(files.Rename(At("Spare\\abc.gau"), At("Gauges")));
  for (const char* source_name : {"absent", "Gauges"}) {
    CHECK_FALSE(files.Copy(At(source_name), At("copy")));
    CHECK_FALSE(files.Delete(At(source_name)));
  }
  CHECK_FALSE(files.Rename(At("absent"), At("Spare\\abc.gau")));
  CHECK(Tree() == "Gauges Spare Spare/Abc.GAU ");
  CHECK(Get(folder / "Spare/Abc.GAU") == content);
}

}  // namespace
}  // namespace panelkit::test
