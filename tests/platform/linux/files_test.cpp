// Files on the disks of a prefix.
#include <doctest/doctest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

#include "ordinary_user.h"
#include "platform/linux/linux_files.h"
#include "support/temp_folder.h"

namespace panelkit {
namespace {

namespace fs = std::filesystem;
using test::Get;
using test::Put;
using Paths = std::set<std::string>;

void SetDosAttributes(const fs::path& file, std::string_view text) {
  REQUIRE(setxattr(file.c_str(), "user.DOSATTRIB", text.data(), text.size(), 0) == 0);
}

/// The C: drive of a prefix.
struct Disk {
  Disk() { fs::create_directories(root); }

  /// Every path on the disk.
  Paths All() const {
    Paths all;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
      all.insert(entry.path().lexically_relative(root));
    }
    return all;
  }

  test::TempFolder prefix;
  fs::path root = prefix / "drive_c";
  PathResolver resolver{prefix.Path().native()};
  LinuxFiles files{resolver, "C:"};
};

TEST_CASE_FIXTURE(Disk, "A listing gives what Windows would show, in its order") {
  for (const char* name : {"zoo.gau", "b_x.GAU", "Bax.gau", "ümlaut", ".dot.gau", "hidden",
                           "system", "archive", "back\\slash", "latin\xFC", "Folder/inside"}) {
    Put(root / name, "x");
  }
  fs::create_symlink("zoo.gau", root / "link.gau");
  fs::create_symlink("nothing", root / "dangling");
  fs::create_directory_symlink("Folder", root / "linked");
  REQUIRE(mkfifo((root / "pipe").c_str(), 0600) == 0);
  SetDosAttributes(root / "hidden", "0x22");
  SetDosAttributes(root / "system", "0x4");
  SetDosAttributes(root / "archive", "0x20");
  const std::vector<std::string> all = {".",      "..",       "archive", "Bax.gau", "b_x.GAU",
                                        "Folder", "link.gau", "linked",  "zoo.gau", "ümlaut"};
  CHECK(files.List(R"(C:\*.*)", ListedEntries::FilesAndFolders) == all);
  CHECK(files.List(R"(c:\LINKED\*)", ListedEntries::PlainFiles) ==
        std::vector{std::string("inside")});
  CHECK(files.List(R"(C:\zoo.gau\*.*)", ListedEntries::PlainFiles) == std::nullopt);
}

TEST_CASE_FIXTURE(Disk, "A long listing leaves out every hidden file and no other") {
  std::vector<std::string> shown;
  for (int i = 1000; i < 2000; ++i) {
    const std::string name = std::to_string(i) + ".gau";
    Put(root / name, "x");
    if (i % 7 == 0) {
      SetDosAttributes(root / name, "0x2");
    } else {
      shown.push_back(name);
    }
  }
  CHECK(files.List(R"(C:\*.gau)", ListedEntries::PlainFiles) == shown);
}

TEST_CASE_FIXTURE(Disk, "The kinds of files are told apart") {
  Put(root / "Plain.txt", "text");
  Put(root / "Folder/hidden.txt", "x");
  SetDosAttributes(root / "Folder/hidden.txt", "0x2");
  fs::create_hard_link(root / "Plain.txt", root / "twin");
  REQUIRE(mkfifo((root / "pipe").c_str(), 0600) == 0);
  Put(root / "huge", "");
  fs::resize_file(root / "huge", kLargestFile + 1);
  const auto told = [&](const char* path) {
    return std::string(files.Exists(path) ? "there" : "absent") +
           (files.IsFolder(path) ? ", folder" : "") + (files.IsPlainFile(path) ? ", plain" : "") +
           (files.IsSame(path, R"(C:\twin)") ? ", twin" : "") + ": " +
           files.Read(path).value_or("unread");
  };
  CHECK(told(R"(C:\PLAIN.txt)") == "there, plain, twin: text");
  CHECK(told(R"(C:\folder\HIDDEN.txt)") == "there: x");
  CHECK(told(R"(C:\folder)") == "there, folder: unread");
  CHECK(told(R"(C:\pipe)") == "there: unread");
  CHECK(told(R"(Z:\dev\zero)") == "there: unread");
  CHECK(told(R"(C:\huge)") == "there, plain: unread");
  CHECK(told(R"(C:\absent)") == "absent: unread");
  // A file of the kernel's that tells no size beforehand.
  CHECK(told(R"(Z:\proc\self\comm)").starts_with("there, plain: test_"));
}

TEST_CASE_FIXTURE(Disk, "New content takes the old one's place and keeps all else") {
  const fs::path file = root / "real/fs2002.cfg";
  Put(file, "old");
  fs::create_symlink("real/fs2002.cfg", root / "Fs2002.cfg");
  fs::create_symlink("real/made.cfg", root / "made.cfg");
  SetDosAttributes(file, "0x22");
  fs::permissions(file, fs::perms(0640));
  const bool is_root = getuid() == 0;
  if (is_root) REQUIRE(chown(file.c_str(), 65534, 65534) == 0);
  CHECK(files.Replace(R"(C:\FS2002.CFG)", "new", Durability::Flushed));
  CHECK(files.Replace(R"(C:\MADE.cfg)", "made", Durability::Buffered));
  CHECK(Get(file) == "new");
  CHECK_FALSE(files.IsPlainFile(R"(C:\real\fs2002.cfg)"));
  struct stat status {};
  REQUIRE(stat(file.c_str(), &status) == 0);
  CHECK(status.st_mode == (S_IFREG | 0640U));
  CHECK(status.st_uid == (is_root ? 65534 : getuid()));
  CHECK(fs::is_symlink(root / "Fs2002.cfg"));
  CHECK(All() == Paths{"Fs2002.cfg", "made.cfg", "real", "real/fs2002.cfg", "real/made.cfg"});
}

TEST_CASE_FIXTURE(Disk, "What cannot be written stays as it was, without a trace") {
  Put(root / "others", "old");
  Put(root / "closed/file", "old");
  fs::permissions(root / "others", fs::perms(0464));
  fs::permissions(root / "closed", fs::perms(0555));
  fs::permissions(prefix.Path(), fs::perms(0755));
  fs::permissions(root, fs::perms(0777));
  const Paths before = All();
  CHECK(test::AsOrdinaryUser([&] {
    const bool is_kept = !files.Replace(R"(C:\others)", "new", Durability::Flushed) &&
                         !files.Replace(R"(C:\closed\new)", "new", Durability::Flushed) &&
                         !files.Copy(R"(C:\others)", R"(C:\closed\copy)") &&
                         !files.Rename(R"(C:\closed\file)", R"(C:\closed\other)") &&
                         !files.Delete(R"(C:\closed\file)") &&
                         files.MakeFolder(R"(C:\closed\new)") == kFolderExistsOrNoAccess;
    // A limit on the size of files fails as a full disk does.
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    return is_kept && setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
           !files.Replace(R"(C:\new)", std::string(2000, 'x'), Durability::Flushed) &&
           !files.Copy(R"(Z:\proc\self\exe)", R"(C:\copy)");
  }));
  CHECK(All() == before);
  CHECK(Get(root / "others") == "old");
}

TEST_CASE_FIXTURE(Disk, "A gauge moves with its mode, and other spellings of its name give way") {
  const std::string content(300000, 'g');
  const fs::path source = root / "Gauges/ABC.GAU";
  Put(source, content);
  Put(root / "Spare/Abc.gau", "older");
  Put(root / "Spare/abc.gau", "oldest");
  SetDosAttributes(source, "0x21");
  fs::permissions(source, fs::perms(0444));
  CHECK(files.Copy(R"(C:\Gauges\abc.gau)", R"(C:\Spare\moving)"));
  CHECK(files.Rename(R"(C:\Spare\moving)", R"(C:\spare\ABC.gau)"));
  CHECK_FALSE(files.Delete(R"(C:\Gauges\abc.gau)"));
  CHECK(files.ClearAttributes(R"(C:\Gauges\abc.gau)"));
  CHECK(getxattr(source.c_str(), "user.DOSATTRIB", nullptr, 0) == -1);
  CHECK(files.Delete(R"(C:\Gauges\abc.gau)"));
  CHECK(All() == Paths{"Gauges", "Spare", "Spare/ABC.gau"});
  CHECK(Get(root / "Spare/ABC.gau") == content);
  CHECK(fs::status(root / "Spare/ABC.gau").permissions() == fs::perms(0444));
  CHECK(files.Rename(R"(C:\Spare\abc.gau)", R"(C:\Spare\Abc.GAU)"));
  CHECK(All() == Paths{"Gauges", "Spare", "Spare/Abc.GAU"});
}

TEST_CASE_FIXTURE(Disk, "A step that cannot be taken loses nothing and tells why") {
  Put(root / "a", "a");
  Put(root / "B/inside", "b");
  fs::create_symlink("a", root / "to_a");
  const Paths before = All();
  for (const char* target : {R"(C:\A)", R"(C:\to_a)", R"(C:\b)"}) {
    CHECK_FALSE(files.Copy(R"(C:\a)", target));
  }
  for (const char* source : {R"(C:\absent)", R"(C:\b)"}) {
    CHECK_FALSE(files.Copy(source, R"(C:\a)"));
    CHECK_FALSE(files.Rename(source, R"(C:\a)"));
    CHECK_FALSE(files.Rename(R"(C:\a)", R"(C:\b)"));
    CHECK_FALSE(files.Delete(source));
    CHECK_FALSE(files.ClearAttributes(source));
  }
  CHECK(files.MakeFolder(R"(C:\A)") == kFolderExistsOrNoAccess);
  CHECK(files.MakeFolder(R"(C:\a\Deep)") == kFolderParentMissing);
  CHECK(files.MakeFolder(R"(Q:\New)") == kFolderParentMissing);
  CHECK(files.MakeFolder(R"(C:\a?b)") > kFolderParentMissing);
  CHECK(files.MakeFolder("C:\\" + std::string(300, 'x')) > kFolderParentMissing);
  CHECK(All() == before);
  CHECK(Get(root / "a") == "a");
}

}  // namespace
}  // namespace panelkit
