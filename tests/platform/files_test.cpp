// What the files of every machine promise.
#include <doctest/doctest.h>

#include <thread>

#include "platform/disk.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

TEST_CASE_FIXTURE(Disk, "A listing goes by long names, hides what is hidden, and has an order") {
  for (const char* name : {"b.gau", "A.GAU", "b_x.GAU", "Bax.gau", "x.gau_old", "Höhe.gau",
                           "計器.gau", "README", "hidden.gau", "folder.gau/inside"}) {
    Put(folder / name, "");
  }
  Hide(folder / "hidden.gau");
  const std::string gauges = "A.GAU b.gau Bax.gau b_x.GAU ";
  CHECK(List("*.gau", ListedEntries::PlainFiles) == gauges + "Höhe.gau 計器.gau ");
  CHECK(List("*.*", ListedEntries::FilesAndFolders) ==
        "./ ../ " + gauges + "folder.gau/ Höhe.gau README x.gau_old 計器.gau ");
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
           files.Read(path).bytes.value_or("unread");
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
  // What stands in the way of a new folder.
  CHECK(files.MakeFolder(At("SUB\\")) == kFolderExistsOrNoAccess);
  CHECK(files.MakeFolder(At("Hidden")) == kFolderExistsOrNoAccess);
  CHECK(files.MakeFolder(At("hidden\\new")) == kFolderParentMissing);
  for (const int other : {kFolderCreated, kFolderExistsOrNoAccess, kFolderParentMissing}) {
    CHECK(files.MakeFolder(At("a?b")) != other);
  }
}

TEST_CASE_FIXTURE(Disk, "A rewrite keeps the attributes, and leaves nothing beside the file") {
  Put(folder / "FS2002.cfg", "old");
  Hide(folder / "FS2002.cfg");
  const std::string content(3'000'000, 'x');
  for (const Durability durability : {Durability::Flushed, Durability::Buffered}) {
    CHECK(files.Replace(At("fs2002.cfg"), "new", durability) == FileFault::None);
    CHECK(files.Replace(At("GAUGES.HTM"), content, durability) == FileFault::None);
  }
  CHECK(Get(folder / "FS2002.cfg") == "new");
  CHECK_FALSE(files.IsPlainFile(At("FS2002.cfg")));
  CHECK(Get(folder / "GAUGES.HTM") == content);
  for (const char* bytes : {"longer than the new", "short"}) {
    CHECK(files.Overwrite(At("gauges.htm"), bytes) == FileFault::None);
    CHECK(Get(folder / "GAUGES.HTM") == bytes);
  }
  CHECK(files.Overwrite(At("absent"), "") == FileFault::Absent);
  CHECK(files.Replace(At("absent\\x"), "", Durability::Flushed) == FileFault::Absent);
  CHECK(Tree(folder.Path()) == "FS2002.cfg\nGAUGES.HTM\n");
}

TEST_CASE_FIXTURE(Disk, "A copy is whole, and read-only files are moved and deleted like others") {
  const std::string content(300'000, 'g');
  Put(folder / "Gauges/a.gau", content);
  fs::permissions(folder / "Gauges/a.gau", fs::perms::owner_read);
  CHECK(files.Copy(At("Gauges\\A.gau"), At("moving")));
  CHECK(files.Delete(At("Gauges\\A.gau")));
  CHECK(files.Rename(At("moving"), At("Spare.GAU")));
  CHECK(files.Rename(At("spare.gau"), At("Spare.gau")));
  CHECK((fs::status(folder / "Spare.gau").permissions() & fs::perms::owner_write) ==
        fs::perms::none);

  // Steps that cannot be taken lose nothing.
  CHECK_FALSE(files.Copy(At("spare.gau"), At("SPARE.GAU")));
  CHECK_FALSE(files.Copy(At("spare.gau"), At("gauges")));
  CHECK_FALSE(files.Rename(At("spare.gau"), At("Gauges")));
  CHECK_FALSE(files.Rename(At("absent"), At("Spare.gau")));
  for (const char* name : {"absent", "Gauges"}) {
    CHECK_FALSE(files.Copy(At(name), At("copy")));
    CHECK_FALSE(files.Delete(At(name)));
  }
  CHECK(Tree(folder.Path()) == "Spare.gau\n");
  CHECK(Get(folder / "Spare.gau") == content);
}

TEST_CASE_FIXTURE(Disk, "A folder's lock keeps others out until it goes") {
  Put(folder / "count", "0");
  const std::string at = files.AppFolder();
  const auto count_up = [this, &at] {
    const auto own = OpenMachineAt(folder.Path(), folder.Path());
    Files& own_files = own->Services().files;
    for (int i = 0; i < 25; ++i) {
      const auto lock = own_files.Lock(at);
      const int count = std::stoi(*own_files.Read(at + "\\count").bytes);
      own_files.Replace(at + "\\count", std::to_string(count + 1), Durability::Buffered);
    }
  };
  std::thread other(count_up);
  count_up();
  other.join();
  CHECK(Get(folder / "count") == "50");
  CHECK(Tree(folder.Path()) == "count\n");
  CHECK(files.Lock(At("absent")) == nullptr);
  files.Append(At("COUNT"), " and");
  files.Append(At("count"), " more");
  files.Append(At("absent\\x"), "nothing");
  files.Append(At("new"), "bytes");
  CHECK(Get(folder / "count") + Get(folder / "new") == "50 and morebytes");
}

}  // namespace
}  // namespace panelkit::test
