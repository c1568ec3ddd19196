// Files as only a Linux disk has them: links, pipes, Wine's attributes, owners, names in other
// case.
#include <sys/stat.h>
#include <sys/xattr.h>

#include "ordinary_user.h"
#include "platform/disk.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

void SetDosAttributes(const fs::path& file, std::string_view text) {
  REQUIRE(setxattr(file.c_str(), "user.DOSATTRIB", text.data(), text.size(), 0) == 0);
}

TEST_CASE_FIXTURE(Disk, "A long listing gives what Windows would show") {
  std::string shown = ". .. ";
  for (int i = 1000; i < 2000; ++i) {
    const std::string name = std::to_string(i) + ".gau";
    Put(folder / name, "x");
    SetDosAttributes(folder / name, i % 7 != 0 ? "0x20" : i % 2 == 0 ? "0x22" : "0x4");
    if (i % 7 != 0) shown += name + ' ';
  }
  for (const char* name : {".dot.gau", "back\\slash", "latin\xFC"}) Put(folder.Path() / name, "x");
  fs::create_symlink("1000.gau", folder / "link.gau");
  fs::create_symlink("nothing", folder / "dangling");
  fs::create_directory_symlink(".", folder / "linked");
  REQUIRE(mkfifo((folder / "pipe").c_str(), 0600) == 0);
  CHECK(List("*.*", ListedEntries::FilesAndFolders) == shown + "link.gau linked ");
}

TEST_CASE_FIXTURE(Disk, "A pipe, a device and a file without a size are told from plain files") {
  Put(folder / "twin", "text");
  fs::create_hard_link(folder / "twin", folder / "other");
  REQUIRE(mkfifo((folder / "pipe").c_str(), 0600) == 0);
  CHECK(files.IsSame(At("twin"), At("other")));
  for (const std::string& path : {At("pipe"), std::string(R"(Z:\dev\zero)")}) {
    CHECK(files.Exists(path));
    CHECK_FALSE(files.IsPlainFile(path));
    CHECK_FALSE(files.Read(path));
  }
  CHECK(files.Read(R"(Z:\proc\self\comm)") == "test_linux\n");
}

TEST_CASE_FIXTURE(Disk, "A rewrite follows links and keeps the owner and the permissions") {
  const fs::path file = folder / "real/fs2002.cfg";
  Put(file, "old");
  fs::create_symlink("real/fs2002.cfg", folder / "Fs2002.cfg");
  fs::create_symlink("real/made.cfg", folder / "made.cfg");
  fs::permissions(file, fs::perms(0640));
  const bool is_root = getuid() == 0;
  if (is_root) REQUIRE(chown(file.c_str(), 65534, 65534) == 0);
  CHECK(files.Replace(At("FS2002.CFG"), "new", Durability::Flushed));
  CHECK(files.Replace(At("MADE.cfg"), "made", Durability::Buffered));
  CHECK(Get(file) == "new");
  struct stat status {};
  REQUIRE(stat(file.c_str(), &status) == 0);
  CHECK(status.st_mode == (S_IFREG | 0640U));
  CHECK(status.st_uid == (is_root ? 65534 : getuid()));
  CHECK(fs::is_symlink(folder / "Fs2002.cfg"));
  CHECK(Tree() == "Fs2002.cfg made.cfg real real/fs2002.cfg real/made.cfg ");
}

TEST_CASE_FIXTURE(Disk, "What is closed to us stays as it was, without a trace") {
  Put(folder / "others", "old");
  Put(folder / "closed/file", "old");
  fs::permissions(folder / "others", fs::perms(0446));
  fs::permissions(folder / "closed", fs::perms(0555));
  fs::permissions(folder.Path(), fs::perms(0777));
  const OrdinaryUser user;
  CHECK_FALSE(files.Replace(At("others"), "new", Durability::Flushed));
  CHECK_FALSE(files.Copy(At("others"), At("closed\\copy")));
  CHECK_FALSE(files.Rename(At("closed\\file"), At("closed\\other")));
  CHECK_FALSE(files.Delete(At("closed\\file")));
  CHECK(files.MakeFolder(At("closed\\new")) == kFolderExistsOrNoAccess);
  CHECK(files.MakeFolder("Q:\\new") == kFolderParentMissing);
  CHECK(Tree() == "closed closed/file others ");
  CHECK(Get(folder / "others") == "old");
}

TEST_CASE_FIXTURE(Disk,
                  "A gauge moves with its mode, and all other spellings of its name give way") {
  Put(folder / "abc.gau", "gauge");
  Put(folder / "Spare/Abc.gau", "older");
  Put(folder / "Spare/abc.gau", "oldest");
  fs::create_symlink("abc.gau", folder / "link");
  SetDosAttributes(folder / "abc.gau", "0x21");
  fs::permissions(folder / "abc.gau", fs::perms(0444));
  CHECK_FALSE(files.Copy(At("abc.gau"), At("link")));
  CHECK(files.Copy(At("abc.gau"), At("Spare\\moving")));
  CHECK(files.Rename(At("Spare\\moving"), At("Spare\\ABC.gau")));
  CHECK(files.ClearAttributes(At("ABC.gau")));
  CHECK(getxattr((folder / "abc.gau").c_str(), "user.DOSATTRIB", nullptr, 0) == -1);
  CHECK(Tree() == "Spare Spare/ABC.gau abc.gau link ");
  CHECK(Get(folder / "Spare/ABC.gau") == "gauge");
  CHECK(fs::status(folder / "Spare/ABC.gau").permissions() == fs::perms(0444));
}

}  // namespace
}  // namespace panelkit::test
