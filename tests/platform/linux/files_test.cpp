// Files on the disks of a prefix.
#include <doctest/doctest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include "ordinary_user.h"
#include "platform/linux/linux_files.h"
#include "support/temp_folder.h"

namespace panelkit {
namespace {

namespace fs = std::filesystem;
using test::AsOrdinaryUser;
using test::Get;
using test::Put;
using test::TempFolder;

/// The C: drive of a prefix.
struct Disk {
  Disk() { fs::create_directories(root); }

  /// Every path on the disk with "/" behind folders, sorted.
  std::vector<std::string> All() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
      all.push_back(test::Utf8(entry.path().lexically_relative(root)) +
                    (entry.is_directory() ? "/" : ""));
    }
    std::sort(all.begin(), all.end());
    return all;
  }

  TempFolder prefix;
  fs::path root = prefix / "drive_c";
  PathResolver resolver{prefix.Path().native()};
  LinuxFiles files{resolver, "C:"};
};

using Names = std::vector<std::string>;

void SetDosAttributes(const fs::path& file, std::string_view text) {
  REQUIRE(setxattr(file.c_str(), "user.DOSATTRIB", text.data(), text.size(), 0) == 0);
}

unsigned ModeOf(const fs::path& file) {
  return static_cast<unsigned>(fs::status(file).permissions());
}

TEST_CASE("A listing gives what Windows would show, in its order") {
  Disk disk;
  for (const char* name : {"zoo.gau", "b_x.GAU", "Bax.gau", "ümlaut.gau", "x.gau_old", ".dot.gau",
                           "hidden.gau", "system.gau", "archive.gau", "back\\slash.gau",
                           "latin\xFC.gau", "Folder.gau/inside", ".git/config"}) {
    Put(disk.root / name, "x");
  }
  fs::create_symlink("zoo.gau", disk.root / "link.gau");
  fs::create_symlink("nothing", disk.root / "dangling.gau");
  fs::create_directory_symlink("Folder.gau", disk.root / "linked");
  REQUIRE(mkfifo((disk.root / "pipe.gau").c_str(), 0600) == 0);
  SetDosAttributes(disk.root / "hidden.gau", "0x22");
  SetDosAttributes(disk.root / "system.gau", "0x4");
  SetDosAttributes(disk.root / "archive.gau", "0x20");

  const Names gauges = {"archive.gau", "Bax.gau", "b_x.GAU", "link.gau", "zoo.gau", "ümlaut.gau"};
  CHECK(disk.files.List(R"(C:\*.GAU)", ListedEntries::PlainFiles) == gauges);
  const Names all = {".",        "..",     "archive.gau", "Bax.gau", "b_x.GAU",   "Folder.gau",
                     "link.gau", "linked", "x.gau_old",   "zoo.gau", "ümlaut.gau"};
  CHECK(disk.files.List(R"(C:\*.*)", ListedEntries::FilesAndFolders) == all);
  CHECK(disk.files.List(R"(c:\FOLDER.gau\*.*)", ListedEntries::PlainFiles) == Names{"inside"});
  CHECK(disk.files.List(R"(C:\linked\*.gau)", ListedEntries::PlainFiles) == Names{});
  CHECK(disk.files.List(R"(C:\absent\*.*)", ListedEntries::PlainFiles) == std::nullopt);
  CHECK(disk.files.List(R"(C:\zoo.gau\*.*)", ListedEntries::PlainFiles) == std::nullopt);
}

TEST_CASE("The kinds of files are told apart") {
  Disk disk;
  Put(disk.root / "Plain.txt", "text");
  Put(disk.root / "Folder/hidden.txt", "x");
  SetDosAttributes(disk.root / "Folder/hidden.txt", "0x2");
  fs::create_hard_link(disk.root / "Plain.txt", disk.root / "twin");
  fs::create_directory_symlink("Folder", disk.root / "linked");
  REQUIRE(mkfifo((disk.root / "pipe").c_str(), 0600) == 0);
  Put(disk.root / "huge", "");
  fs::resize_file(disk.root / "huge", kLargestFile + 1);
  struct Kind {
    const char* path;
    bool is_folder, is_plain_file, exists;
    std::optional<std::string> content;
  };
  const Kind kinds[] = {
      {R"(C:\PLAIN.txt)", false, true, true, "text"},
      {R"(C:\folder\HIDDEN.txt)", false, false, true, "x"},
      {R"(C:\folder)", true, false, true, std::nullopt},
      {R"(C:\linked)", true, false, true, std::nullopt},
      {R"(C:\pipe)", false, false, true, std::nullopt},
      {R"(Z:\dev\zero)", false, false, true, std::nullopt},
      {R"(C:\huge)", false, true, true, std::nullopt},
      {R"(C:\absent)", false, false, false, std::nullopt},
  };
  for (const Kind& kind : kinds) {
    CAPTURE(kind.path);
    CHECK(disk.files.IsFolder(kind.path) == kind.is_folder);
    CHECK(disk.files.IsPlainFile(kind.path) == kind.is_plain_file);
    CHECK(disk.files.Exists(kind.path) == kind.exists);
    CHECK(disk.files.Read(kind.path) == kind.content);
  }
  CHECK(disk.files.IsSame(R"(C:\plain.TXT)", R"(C:\twin)"));
  CHECK(disk.files.IsSame(R"(C:\linked)", R"(C:\Folder)"));
  CHECK_FALSE(disk.files.IsSame(R"(C:\plain.TXT)", R"(C:\Folder)"));
  CHECK_FALSE(disk.files.IsSame(R"(C:\absent)", R"(C:\absent)"));
  // A file of the kernel's that tells no size beforehand.
  CHECK(disk.files.Read(R"(Z:\proc\self\comm)").value_or("").starts_with("test_"));
}

TEST_CASE("New content takes the old one's place and keeps all else") {
  Disk disk;
  Put(disk.root / "real/fs2002.cfg", "old");
  fs::create_symlink("real/fs2002.cfg", disk.root / "Fs2002.cfg");
  fs::create_symlink("real/made.cfg", disk.root / "made.cfg");
  const fs::path file = disk.root / "real/fs2002.cfg";
  SetDosAttributes(file, "0x22");
  fs::permissions(file, fs::perms(0640));
  const bool is_root = getuid() == 0;
  if (is_root) REQUIRE(chown(file.c_str(), 65534, 65534) == 0);

  CHECK(disk.files.Replace(R"(C:\FS2002.CFG)", "new", Durability::Flushed));
  CHECK(disk.files.Replace(R"(C:\MADE.cfg)", "made", Durability::Buffered));
  CHECK(disk.files.Replace(R"(C:\REAL\Page.htm)", "page", Durability::Buffered));
  CHECK(Get(file) == "new");
  CHECK(ModeOf(file) == 0640);
  Put(disk.root / "by_umask", "x");
  CHECK(ModeOf(disk.root / "real/Page.htm") == ModeOf(disk.root / "by_umask"));
  fs::remove(disk.root / "by_umask");
  CHECK_FALSE(disk.files.IsPlainFile(R"(C:\fs2002.cfg)"
                                     "\\..\\real\\fs2002.cfg"));
  struct stat status {};
  REQUIRE(stat(file.c_str(), &status) == 0);
  CHECK(status.st_uid == (is_root ? 65534 : getuid()));
  CHECK(fs::is_symlink(disk.root / "Fs2002.cfg"));
  CHECK(disk.All() == Names{"Fs2002.cfg", "made.cfg", "real/", "real/Page.htm", "real/fs2002.cfg",
                            "real/made.cfg"});
}

TEST_CASE("What cannot be written stays as it was, without a trace") {
  Disk disk;
  Put(disk.root / "read-only", "old");
  Put(disk.root / "others", "old");
  Put(disk.root / "closed/file", "old");
  fs::permissions(disk.root / "read-only", fs::perms(0444));
  fs::permissions(disk.root / "others", fs::perms(0464));
  fs::permissions(disk.root / "closed", fs::perms(0555));
  fs::permissions(disk.prefix.Path(), fs::perms(0755));
  fs::permissions(disk.root, fs::perms(0777));
  const Names before = disk.All();
  CHECK_FALSE(disk.files.Replace(R"(C:\read-only)", "new", Durability::Flushed));
  CHECK_FALSE(disk.files.Replace(R"(C:\closed)", "new", Durability::Flushed));
  CHECK_FALSE(disk.files.Replace(R"(C:\absent\x)", "new", Durability::Flushed));
  CHECK(AsOrdinaryUser([&] {
    const bool is_new = disk.files.Replace(R"(C:\mine)", "new", Durability::Flushed);
    fs::permissions(disk.root / "mine", fs::perms(0020));
    return is_new && !disk.files.Replace(R"(C:\mine)", "newer", Durability::Flushed) &&
           disk.files.Delete(R"(C:\mine)") &&
           !disk.files.Replace(R"(C:\others)", "new", Durability::Flushed) &&
           !disk.files.Replace(R"(C:\closed\new)", "new", Durability::Flushed) &&
           !disk.files.Copy(R"(C:\others)", R"(C:\closed\copy)") &&
           !disk.files.Rename(R"(C:\closed\file)", R"(C:\closed\other)") &&
           !disk.files.Delete(R"(C:\closed\file)") &&
           disk.files.MakeFolder(R"(C:\closed\new)") == kFolderExistsOrNoAccess;
  }));
  // A limit on the size of files fails as a full disk does.
  CHECK(AsOrdinaryUser([&] {
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{1000, 1000};
    const bool is_limited = setrlimit(RLIMIT_FSIZE, &limit) == 0;
    return is_limited &&
           !disk.files.Replace(R"(C:\new)", std::string(2000, 'x'), Durability::Flushed) &&
           !disk.files.Copy(R"(Z:\proc\self\exe)", R"(C:\copy)");
  }));
  CHECK(disk.All() == before);
  for (const char* name : {"read-only", "others", "closed/file"}) {
    CHECK(Get(disk.root / name) == "old");
  }
}

TEST_CASE("A folder's making tells how it went") {
  Disk disk;
  Put(disk.root / "File", "x");
  const std::pair<const char*, int> cases[] = {
      {R"(C:\New)", kFolderCreated},
      {R"(C:\NEW)", kFolderExistsOrNoAccess},
      {R"(C:\new\Deep\)", kFolderCreated},
      {R"(C:\file)", kFolderExistsOrNoAccess},
      {R"(C:)", kFolderExistsOrNoAccess},
      {R"(C:\absent\Deep)", kFolderParentMissing},
      {R"(C:\File\Deep)", kFolderParentMissing},
      {R"(Q:\New)", kFolderParentMissing},
      {R"(\\server\share)", kFolderParentMissing},
      {"", kFolderParentMissing},
  };
  for (const auto& made : cases) {
    CAPTURE(made.first);
    CHECK(disk.files.MakeFolder(made.first) == made.second);
  }
  CHECK(disk.files.MakeFolder(R"(C:\a?b)") > kFolderParentMissing);
  CHECK(disk.files.MakeFolder("C:\\" + std::string(300, 'x')) > kFolderParentMissing);
  CHECK(disk.All() == Names{"File", "New/", "New/Deep/"});
}

TEST_CASE("A gauge moves: copied, named, released and deleted, read-only or not") {
  Disk disk;
  const std::string content(300000, 'g');
  Put(disk.root / "Gauges/ABC.GAU", content);
  Put(disk.root / "Spare/Abc.gau", "older");
  Put(disk.root / "Spare/abc.gau", "oldest");
  Put(disk.root / "Spare/panelkit.tmp", "stale");
  const fs::path source = disk.root / "Gauges/ABC.GAU";
  const auto time = fs::file_time_type::clock::now() - std::chrono::hours(24 * 400);
  fs::last_write_time(source, time);
  SetDosAttributes(source, "0x21");
  for (const char* name : {"Gauges/ABC.GAU", "Spare/abc.gau", "Spare/panelkit.tmp"}) {
    fs::permissions(disk.root / name, fs::perms(0444));
  }

  CHECK(disk.files.Copy(R"(C:\Gauges\abc.gau)", R"(C:\Spare\panelkit.tmp)"));
  CHECK(disk.files.Rename(R"(C:\Spare\panelkit.tmp)", R"(C:\spare\ABC.gau)"));
  CHECK_FALSE(disk.files.Delete(R"(C:\Gauges\abc.gau)"));
  CHECK(disk.files.ClearAttributes(R"(C:\Gauges\abc.gau)"));
  CHECK(getxattr(source.c_str(), "user.DOSATTRIB", nullptr, 0) == -1);
  CHECK(disk.files.Delete(R"(C:\Gauges\abc.gau)"));

  CHECK(disk.All() == Names{"Gauges/", "Spare/", "Spare/ABC.gau"});
  const fs::path moved = disk.root / "Spare/ABC.gau";
  CHECK(Get(moved) == content);
  CHECK(fs::last_write_time(moved) == time);
  CHECK(ModeOf(moved) == 0444);
  CHECK(disk.files.Rename(R"(C:\Spare\abc.gau)", R"(C:\Spare\Abc.GAU)"));
  CHECK(disk.All() == Names{"Gauges/", "Spare/", "Spare/Abc.GAU"});
}

TEST_CASE("A step that cannot be taken loses nothing") {
  Disk disk;
  Put(disk.root / "a", "a");
  Put(disk.root / "B/inside", "b");
  fs::create_symlink("a", disk.root / "to_a");
  const Names before = disk.All();
  const auto deny = [&](bool done) { CHECK_FALSE(done); };
  deny(disk.files.Copy(R"(C:\a)", R"(C:\A)"));
  deny(disk.files.Copy(R"(C:\a)", R"(C:\to_a)"));
  deny(disk.files.Copy(R"(C:\a)", R"(C:\b)"));
  deny(disk.files.Copy(R"(C:\absent)", R"(C:\a)"));
  deny(disk.files.Copy(R"(C:\B)", R"(C:\c)"));
  deny(disk.files.Rename(R"(C:\a)", R"(C:\b)"));
  deny(disk.files.Rename(R"(C:\absent)", R"(C:\a)"));
  deny(disk.files.Delete(R"(C:\b)"));
  deny(disk.files.Delete(R"(C:\absent)"));
  deny(disk.files.ClearAttributes(R"(C:\absent)"));
  CHECK(disk.All() == before);
  CHECK(Get(disk.root / "a") == "a");
}

}  // namespace
}  // namespace panelkit
