#include "platform/wine/directory.h"

#include <dirent.h>
#include <fcntl.h>

#include <array>
#include <utility>

#include "platform/wine/native_file.h"
#include "text/utf8.h"

namespace panelkit {

namespace {

/// Whether any change from `since` on gave the folder another time stamp. Stamps move in steps: of
/// at most 10 milliseconds, or of 2 seconds on FAT, where they are whole seconds.
bool ShowsChanges(const struct stat& status, const timespec& since) {
  const auto age = static_cast<double>(since.tv_sec - status.st_mtim.tv_sec) +
                   static_cast<double>(since.tv_nsec - status.st_mtim.tv_nsec) / 1e9;
  return age > (status.st_mtim.tv_nsec == 0 ? 3.0 : 0.05);
}

/// The type of an entry on a file system whose folders do not tell it.
unsigned char TypeOf(int folder, const std::string& name) {
  struct stat status {};
  if (fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) return DT_UNKNOWN;
  return static_cast<unsigned char>(IFTODT(status.st_mode));
}

}  // namespace

std::optional<std::vector<DirectoryEntry>> ReadDirectory(const std::string& native_path) {
  const OpenFile folder(native_path, O_RDONLY | O_DIRECTORY);
  if (!folder.IsOpen()) return std::nullopt;
  std::vector<DirectoryEntry> entries;
  // Not by readdir, whose opendir takes another system call and 32 KiB of memory.
  alignas(dirent64) std::array<char, 16384> records;  // NOLINT(*-member-init): filled by the call.
  for (;;) {
    const ssize_t size = getdents64(folder.Descriptor(), records.data(), records.size());
    if (size < 0) return std::nullopt;
    if (size == 0) return entries;
    for (ssize_t position = 0; position < size;) {
      const auto* entry = reinterpret_cast<const dirent64*>(records.data() + position);
      position += entry->d_reclen;
      DirectoryEntry found{entry->d_name, entry->d_type};
      if (found.name == "." || found.name == "..") continue;
      if (found.type == DT_UNKNOWN) found.type = TypeOf(folder.Descriptor(), found.name);
      entries.push_back(std::move(found));
    }
  }
}

bool CanBeNamed(const std::string& name) {
  return name.find('\\') == std::string::npos && IsUtf8(name);
}

timespec TimeOfStamps() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return now;
}

DirectoryState::DirectoryState(const struct stat& status, const timespec& since)
    : status_(status), shows_changes_(ShowsChanges(status, since)) {}

bool DirectoryState::StillHolds(const struct stat& now) const {
  return shows_changes_ && IsSameState(status_, now);
}

}  // namespace panelkit
