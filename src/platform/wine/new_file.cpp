#include "platform/wine/new_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <mutex>
#include <set>

#include "platform/wine/directory.h"

namespace panelkit {

// A hidden file is locked (flock(2)) from its creation until it has another name, and a lock ends
// with its process, at once: so a file whose lock is free was left behind. Numbers of processes
// would tell less: one may be in use again, belong to another container, or stand for a process
// that has ended and that nobody has waited for.
//
// There is a moment between a file's creation and its lock. Whoever removes takes the lock first
// and holds it: a maker that finds its new file locked, or removed, makes another.
namespace {

constexpr std::string_view kHiddenStart = ".panelkit-";
constexpr std::string_view kHiddenEnd = ".tmp";

bool Lock(const OpenFile& file) {
  return flock(file.Descriptor(), LOCK_EX | LOCK_NB) == 0;
}

/// Whether the file is still what its path names.
bool HasName(const OpenFile& file, const std::string& path) {
  struct stat own {};
  struct stat named {};
  return fstat(file.Descriptor(), &own) == 0 && lstat(path.c_str(), &named) == 0 &&
         own.st_dev == named.st_dev && own.st_ino == named.st_ino;
}

void RemoveLeftBehind(const std::string& folder) {
  const auto entries = ReadDirectory(folder);
  for (std::size_t i = 0; entries && i < entries->size(); ++i) {
    const std::string& name = (*entries)[i].name;
    if (!name.starts_with(kHiddenStart) || !name.ends_with(kHiddenEnd)) continue;
    const std::string path = folder + '/' + name;
    const OpenFile file(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
    if (file.IsOpen() && Lock(file) && HasName(file, path)) unlink(path.c_str());
  }
}

/// True once for each folder, whichever thread asks.
bool IsFirstUseOf(const std::string& folder) {
  static std::mutex mutex;
  static std::set<std::string> used;
  const std::lock_guard lock(mutex);
  return used.insert(folder).second;
}

OpenFile Create(const std::string& path, mode_t mode) {
  return {path, O_RDWR | O_CREAT | O_EXCL, mode};
}

/// False if another process takes the file, just made, for one that was left behind. On a disk that
/// knows no locks nobody does.
bool IsClaimed(const OpenFile& file, const std::string& path) {
  return Lock(file) ? access(path.c_str(), F_OK) == 0 : errno != EWOULDBLOCK;
}

}  // namespace

NewFile::NewFile(std::string path, mode_t mode)
    : path_(std::move(path)), file_(Create(path_, mode)), discard_(file_.IsOpen()) {}

NewFile::NewFile(Beside beside, mode_t mode) {
  const std::string folder = FolderOf(beside.path);
  if (IsFirstUseOf(folder)) RemoveLeftBehind(folder);
  std::string stem = folder + '/';
  stem.append(kHiddenStart).append(std::to_string(getpid())) += '-';
  for (int number = 0; !discard_; ++number) {
    path_ = (stem + std::to_string(number)).append(kHiddenEnd);
    file_ = Create(path_, mode);
    if (!file_.IsOpen() && errno != EEXIST) return;
    discard_ = file_.IsOpen() && IsClaimed(file_, path_);
  }
}

NewFile::~NewFile() {
  if (discard_) unlink(path_.c_str());
}

bool NewFile::Flush() const {
  return fsync(file_.Descriptor()) == 0;
}

bool NewFile::Keep() {
  if (!file_.Close()) return false;
  discard_ = false;
  return true;
}

bool NewFile::KeepAs(const std::string& path) {
  const OpenFile lock = file_.Twin();  // Until the hidden name is gone.
  if (!file_.Close() || std::rename(path_.c_str(), path.c_str()) != 0) return false;
  discard_ = false;
  return true;
}

}  // namespace panelkit
