#include "platform/wine/new_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <mutex>
#include <set>
#include <vector>

#include "platform/wine/folder_reader.h"

namespace panelkit {

namespace {

constexpr std::string_view kTemporaryStart = ".panelkit-";
constexpr std::string_view kTemporaryEnd = ".tmp";

bool HasEnded(pid_t process) {
  return kill(process, 0) != 0 && errno == ESRCH;
}

void RemoveLeftBehind(const std::string& folder) {
  const auto entries = ReadFolder(folder);
  for (std::size_t i = 0; entries && i < entries->size(); ++i) {
    const auto maker = MakerOf((*entries)[i].name, kTemporaryStart, kTemporaryEnd);
    if (!maker) continue;
    const std::string path = folder + '/' + (*entries)[i].name;
    const OpenFile file(path, O_RDONLY | O_NONBLOCK | O_NOFOLLOW);
    if (file.IsOpen() && IsLeftBehind(file, *maker)) unlink(path.c_str());
  }
}

/// True once for each folder, whichever thread asks.
bool IsFirstUseOf(const std::string& folder) {
  static std::mutex mutex;
  static std::set<std::string> used;
  const std::lock_guard lock(mutex);
  return used.insert(folder).second;
}

}  // namespace

NewFile::NewFile(std::string path, mode_t mode)
    : path_(std::move(path)),
      file_(path_, O_RDWR | O_CREAT | O_EXCL, mode),
      discard_(file_.IsOpen()) {
  if (discard_) flock(file_.Descriptor(), LOCK_EX | LOCK_NB);
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
  if (!file_.Close() || std::rename(path_.c_str(), path.c_str()) != 0) return false;
  discard_ = false;
  return true;
}

std::string UnusedPath(const std::string& folder, std::string_view start, std::string_view end) {
  std::string stem = folder + '/';
  stem.append(start).append(std::to_string(getpid())) += '-';
  struct stat taken {};
  for (int number = 0;; ++number) {
    std::string path = (stem + std::to_string(number)).append(end);
    if (lstat(path.c_str(), &taken) != 0) return path;
  }
}

std::optional<pid_t> MakerOf(std::string_view name, std::string_view start, std::string_view end) {
  if (!name.starts_with(start) || !name.ends_with(end)) return std::nullopt;
  name.remove_prefix(start.size());
  pid_t maker = 0;
  const auto [rest, error] = std::from_chars(name.data(), name.data() + name.size(), maker);
  if (error != std::errc() || maker <= 0 || !name.substr(rest - name.data()).starts_with('-')) {
    return std::nullopt;
  }
  return maker;
}

bool IsLeftBehind(const OpenFile& file, pid_t maker) {
  constexpr std::time_t kOld = 60;  // Seconds; a new file is locked at once.
  struct stat status {};
  if (fstat(file.Descriptor(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
  if (flock(file.Descriptor(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK) return false;
  return HasEnded(maker) || std::time(nullptr) - status.st_mtim.tv_sec > kOld;
}

std::string TemporaryPathBeside(const std::string& path) {
  const std::string folder = FolderOf(path);
  if (IsFirstUseOf(folder)) RemoveLeftBehind(folder);
  return UnusedPath(folder, kTemporaryStart, kTemporaryEnd);
}

}  // namespace panelkit
