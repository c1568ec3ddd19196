// Files as only a Linux disk has them: links, pipes, Wine's attributes, owners, twins in other
// case.
#include <dirent.h>
#include <dlfcn.h>
#include <doctest/doctest.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "platform/disk.h"

namespace {

bool tells_types = true;

}  // namespace

/// Stands in for the C library's call, as on a file system whose folders do not tell types.
extern "C" ssize_t getdents64(int folder, void* records, size_t limit) {
  static const auto system =
      reinterpret_cast<ssize_t (*)(int, void*, size_t)>(dlsym(RTLD_NEXT, "getdents64"));
  const ssize_t size = system(folder, records, limit);
  for (ssize_t at = 0; !tells_types && at < size;) {
    auto* entry = reinterpret_cast<dirent64*>(static_cast<char*>(records) + at);
    entry->d_type = DT_UNKNOWN;
    at += entry->d_reclen;
  }
  return size;
}

namespace panelkit::test {
namespace {

namespace fs = std::filesystem;

void SetDosAttributes(const fs::path& file, std::string_view text) {
  REQUIRE(setxattr(file.c_str(), "user.DOSATTRIB", text.data(), text.size(), 0) == 0);
}

/// So many entries that a listing of the folder is remembered.
void PutMany(const fs::path& folder) {
  for (int i = 0; i < 40; ++i) Put(folder / std::to_string(i), "x");
}

/// Has root's own steps bound by permissions, as any other user's are.
class Bound {
 public:
  Bound() { Become(kNobody); }
  ~Bound() { Become(0); }
  static constexpr unsigned kNobody = 65534;

 private:
  static void Become(unsigned id) {
    if (getuid() == 0) REQUIRE((setegid(0) == 0 && seteuid(0) == 0 && setegid(id) == 0));
    if (getuid() == 0) REQUIRE(seteuid(id) == 0);
  }
};

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

TEST_CASE_FIXTURE(Disk, "On a disk whose folders tell no types, every file is listed and met") {
  for (const char* name : {"a.gau", "in/b.gau", "in/deep/c.gau"}) Put(folder / name, "x");
  fs::create_symlink("in/b.gau", folder / "link.gau");
  fs::create_directory_symlink("in", folder / "linked");
  tells_types = false;
  struct : FolderVisitor {
    std::string met;
    Step OnFolder(const std::string&, std::size_t) override { return Step::Enter; }
    bool Wants(std::string_view) override { return true; }
    void OnFile(const FoundFile& file) override { met += file.path.substr(file.path.rfind('\\')); }
  } visitor;
  machine->Services().folders.Walk(files.AppFolder(), visitor);
  const std::string listed = List("*.*", ListedEntries::FilesAndFolders);
  tells_types = true;
  CHECK(visitor.met == R"(\a.gau\link.gau\b.gau\c.gau)");
  CHECK(listed == "./ ../ a.gau in/ link.gau linked/ ");
}

TEST_CASE_FIXTURE(Disk, "A file that appears or goes is seen at once, in other case too") {
  PutMany(folder.Path());
  // As on a disk whose time stamps move in large steps: no change shows in this one.
  const auto stamp = fs::file_time_type::clock::now() + std::chrono::hours(1);
  for (const bool is_there : {false, true, false}) {
    if (is_there) Put(folder / "File.gau", "x");
    if (!is_there) fs::remove(folder / "File.gau");
    fs::last_write_time(folder.Path(), stamp);
    CHECK(files.Exists(At("FILE.GAU")) == is_there);
    CHECK(List("*.gau", ListedEntries::PlainFiles) == (is_there ? "File.gau " : ""));
  }
}

TEST_CASE_FIXTURE(Disk, "A listing shows what has changed since the last one") {
  const auto list = [this] { return List("in\\*.gau", ListedEntries::PlainFiles); };
  // So old that any change gives it another time stamp.
  const auto age = [this] {
    fs::last_write_time(folder / "in", fs::file_time_type::clock::now() - std::chrono::hours(1));
  };
  PutMany(folder / "in");
  for (const char* name : {"in/a.gau", "in/b.gau", "elsewhere"}) Put(folder / name, "x");
  fs::create_symlink("../elsewhere", folder / "in/link.gau");
  age();
  REQUIRE(list() == "a.gau b.gau link.gau ");
  CHECK(List("in\\*.cab", ListedEntries::PlainFiles).empty());
  fs::rename(folder / "in/b.gau", folder / "in/B.cab");
  CHECK(list() == "a.gau link.gau ");
  age();
  CHECK(List("in\\*.cab", ListedEntries::PlainFiles) == "B.cab ");
  // Neither of these changes the folder itself.
  fs::remove(folder / "elsewhere");
  CHECK(list() == "a.gau ");
  SetDosAttributes(folder / "in/a.gau", "0x2");
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(30);
  while (!list().empty() && std::chrono::steady_clock::now() < deadline) std::this_thread::yield();
  CHECK(list().empty());
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
  fs::create_symlink("real/new", folder / "dangling");
  CHECK(files.Replace(At("Dangling"), "made", Durability::Flushed) == FileFault::None);
  CHECK(Get(folder / "real/new") == "made");
  fs::create_symlink("gone/new", folder / "astray");
  CHECK(files.Replace(At("astray"), "", Durability::Flushed) == FileFault::Absent);
  fs::remove(folder / "astray");
  CHECK(Tree(folder.Path()) == "Fs2002.cfg\ndangling\nreal/fs2002.cfg\nreal/new\n");
}

TEST_CASE_FIXTURE(Disk, "A file that cannot be read or written tells why") {
  Put(folder / "marked", "old");
  Put(folder / "shut/file", "old");
  fs::permissions(folder / "marked", fs::perms(0444));
  fs::permissions(folder / "shut/file", fs::perms(0));
  fs::create_directory(folder / "closed");
  Put(folder / "closed/file", "old");
  fs::permissions(folder / "closed", fs::perms(0));
  fs::create_directory(folder / "fixed");
  fs::permissions(folder / "fixed", fs::perms(0555));
  fs::resize_file((Put(folder / "huge", ""), folder / "huge"), kLargestFile + 1);
  fs::create_symlink("loop", folder / "loop");
  REQUIRE(mkfifo((folder / "pipe").c_str(), 0666) == 0);
  const auto told = [this](const std::string& path) {
    return std::pair(files.Read(path).fault, files.Replace(path, "new", Durability::Flushed));
  };
  using enum FileFault;
  CHECK(told(At("MARKED")) == std::pair(None, ReadOnly));
  const Bound bound;
  CHECK(told(At("Shut\\file")) == std::pair(NoAccess, ReadOnly));
  CHECK(told(At("Closed\\File")) == std::pair(NoAccess, NoAccess));
  CHECK(told(At("fixed\\new")) == std::pair(Absent, NoAccess));
  CHECK(told(At("pipe")) == std::pair(NotAFile, NotAFile));
  CHECK(told(At("fixed")) == std::pair(NotAFile, NotAFile));
  CHECK(told("Z:\\dev\\zero") == std::pair(NotAFile, NotAFile));
  CHECK(told("Z:\\proc\\version") == std::pair(None, ReadOnly));
  CHECK(files.Read(At("huge")).fault == TooLarge);
  CHECK(told(At("absent\\x")) == std::pair(Absent, Absent));
  CHECK(told(At("loop")) == std::pair(Absent, Absent));
}

TEST_CASE("A file that may be written but not replaced stays the file it is") {
  const TempFolder folder;
  const fs::path app = folder / "app";
  fs::create_directory(app);
  fs::permissions(app, fs::perms(0777));
  fs::permissions(folder.Path(), fs::perms(0777));
  const auto machine = OpenMachineAt(folder.Path(), app);
  Files& files = machine->Services().files;
  const bool is_root = getuid() == 0;
  const struct {
    const char* name;
    unsigned owner, group, mode;
  } cases[] = {{"others", 0, 0, 0666},
               {"foreign group", Bound::kNobody, 0, 0640},
               {"closed/file", Bound::kNobody, Bound::kNobody, 0600}};
  for (const auto& tied : cases) {
    const fs::path file = folder / tied.name;
    Put(file, "the old content");
    fs::permissions(file, fs::perms(tied.mode));
    if (is_root) REQUIRE(chown(file.c_str(), tied.owner, tied.group) == 0);
  }
  fs::permissions(folder / "closed", fs::perms(0555));
  for (const auto& tied : cases) {
    CAPTURE(tied.name);
    struct stat before {
    }, after{};
    REQUIRE(stat((folder / tied.name).c_str(), &before) == 0);
    {
      const Bound bound;
      const std::string path = machine->WindowsPath((folder / tied.name).native());
      CHECK(files.Replace(path, "new", Durability::Flushed) ==
            (is_root ? FileFault::Irreplaceable : FileFault::None));
      if (is_root) CHECK(Get(folder / tied.name) == "the old content");
      CHECK(files.ReplaceOrOverwrite(path, "new", Durability::Buffered) == FileFault::None);
    }
    REQUIRE(stat((folder / tied.name).c_str(), &after) == 0);
    CHECK(Get(folder / tied.name) == "new");
    CHECK(after.st_mode == before.st_mode);
    CHECK(after.st_uid == before.st_uid);
    CHECK(after.st_gid == before.st_gid);
    if (is_root) CHECK(after.st_ino == before.st_ino);
  }
  CHECK(Tree(folder.Path()) == "closed/file\nforeign group\nothers\n");
}

TEST_CASE_FIXTURE(Disk, "What killed runs left is removed by its free lock, whoever made it") {
  // As of a process that has ended and that its parent does not wait for, or whose number is in
  // use.
  const std::string start = ".panelkit-" + std::to_string(getpid()) + '-';
  Put(folder / (start + "0.tmp"), "half");
  Put(folder / ".panelkit-1-0.tmp", "half");
  Put(folder / (start + "1.tmp"), "being written");
  const int writer = open((folder / (start + "1.tmp")).c_str(), O_RDONLY);
  REQUIRE(flock(writer, LOCK_EX) == 0);
  CHECK(files.Replace(At("page"), "page", Durability::Buffered) == FileFault::None);
  close(writer);
  CHECK(Tree(folder.Path()) == start + "1.tmp\npage\n");
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
