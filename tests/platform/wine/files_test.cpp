// Files as only a Linux disk has them: links, pipes, Wine's attributes, owners, twins in other
// case.
#include <doctest/doctest.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include "platform/disk.h"

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

void SetDosAttributes(const fs::path& file, std::string_view text) {
  REQUIRE(setxattr(file.c_str(), "user.DOSATTRIB", text.data(), text.size(), 0) == 0);
}

TEST_CASE_FIXTURE(Disk, "A long listing gives what Windows would show") {
  std::string shown = "./ ../ ";
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
  CHECK(List("*.*", ListedEntries::FilesAndFolders) == shown + "link.gau linked/ ");
}

TEST_CASE_FIXTURE(Disk, "A file that appears or goes is seen at once, in other case too") {
  // As on a disk whose time stamps move in large steps: no change shows in this one.
  const auto stamp = fs::file_time_type::clock::now() + std::chrono::hours(1);
  for (const bool is_there : {false, true, false}) {
    if (is_there) Put(folder / "File.gau", "x");
    if (!is_there) fs::remove(folder / "File.gau");
    fs::last_write_time(folder.Path(), stamp);
    CHECK(files.Exists(At("FILE.GAU")) == is_there);
  }
}

TEST_CASE_FIXTURE(Disk, "A rewrite follows links and keeps the owner and the permissions") {
  const fs::path file = folder / "real/fs2002.cfg";
  Put(file, "old");
  fs::create_symlink("real/fs2002.cfg", folder / "Fs2002.cfg");
  fs::permissions(file, fs::perms(0640));
  const bool is_root = getuid() == 0;
  if (is_root) REQUIRE(chown(file.c_str(), 65534, 65534) == 0);
  CHECK(files.Replace(At("FS2002.CFG"), "new", Durability::Flushed) == FileFault::None);
  CHECK(Get(file) == "new");
  struct stat status {};
  REQUIRE(stat(file.c_str(), &status) == 0);
  CHECK(status.st_mode == (S_IFREG | 0640U));
  CHECK(status.st_uid == (is_root ? 65534 : getuid()));
  CHECK(fs::is_symlink(folder / "Fs2002.cfg"));
  CHECK(Tree(folder.Path()) == "Fs2002.cfg\nreal/fs2002.cfg\n");
}

TEST_CASE_FIXTURE(Disk,
                  "All other spellings of a gauge's name give way, and no twin is copied away") {
  Put(folder / "moving", "gauge");
  Put(folder / "Abc.gau", "older");
  Put(folder / "abc.gau", "oldest");
  fs::create_hard_link(folder / "moving", folder / "twin");
  CHECK_FALSE(files.Copy(At("moving"), At("twin")));
  CHECK(files.Rename(At("moving"), At("ABC.gau")));
  CHECK(Tree(folder.Path()) == "ABC.gau\ntwin\n");
  CHECK(Get(folder / "ABC.gau") == "gauge");
}

}  // namespace
}  // namespace panelkit::test
