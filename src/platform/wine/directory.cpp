#include "platform/wine/directory.h"

#include <dirent.h>
#include <fcntl.h>

#include <cerrno>
#include <ctime>
#include <memory>

#include "platform/wine/native_file.h"
#include "platform/wine/utf8.h"

namespace panelkit {

namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

/// Whether any change from now on gives the folder another time stamp. Stamps move in steps: of at
/// most 10 milliseconds, or of 2 seconds on FAT, where they are whole seconds.
bool ShowsChanges(const struct stat& status) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const auto age = static_cast<double>(now.tv_sec - status.st_mtim.tv_sec) +
                   static_cast<double>(now.tv_nsec - status.st_mtim.tv_nsec) / 1e9;
  return age > (status.st_mtim.tv_nsec == 0 ? 3.0 : 0.05);
}

/// The type of an entry on a file system whose folders do not tell it.
unsigned char TypeOf(DIR* folder, const std::string& name) {
  struct stat status {};
  if (fstatat(dirfd(folder), name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return DT_UNKNOWN;
  return static_cast<unsigned char>(IFTODT(status.st_mode));
}

}  // namespace

std::optional<std::vector<DirectoryEntry>> ReadDirectory(const std::string& native_path) {
  const std::unique_ptr<DIR, CloseFolder> folder(opendir(native_path.c_str()));
  if (!folder) return std::nullopt;
  std::vector<DirectoryEntry> entries;
  for (;;) {
    errno = 0;
    const dirent* const entry = readdir(folder.get());
    if (!entry) break;
    DirectoryEntry found{entry->d_name, entry->d_type};
    if (found.name == "." || found.name == "..") continue;
    if (found.type == DT_UNKNOWN) found.type = TypeOf(folder.get(), found.name);
    entries.push_back(std::move(found));
  }
  if (errno != 0) return std::nullopt;
  return entries;
}

bool CanBeNamed(const std::string& name) {
  return name.find('\\') == std::string::npos && utf8::IsValid(name);
}

DirectoryState::DirectoryState(const struct stat& status)
    : status_(status), shows_changes_(ShowsChanges(status)) {}

bool DirectoryState::StillHolds(const struct stat& now) const {
  return shows_changes_ && IsSameState(status_, now);
}

}  // namespace panelkit
