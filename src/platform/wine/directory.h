// The entries of a native folder, and whether what was read of it still holds.
#pragma once

#include <sys/stat.h>

#include <ctime>
#include <optional>
#include <string>
#include <vector>

namespace panelkit {

/// One entry of a folder.
struct DirectoryEntry {
  std::string name;
  unsigned char type = 0;  ///< DT_REG, DT_DIR, DT_LNK, ... of dirent.h.
};

/// All entries but "." and "..", in no order; nullopt if the folder cannot be read.
std::optional<std::vector<DirectoryEntry>> ReadDirectory(const std::string& native_path);

/// Whether a Windows path can hold the name: it is UTF-8 and has no backslash.
bool CanBeNamed(const std::string& name);

/// The time of now, by the clock of time stamps.
timespec TimeOfStamps();

/// The state of a folder as its entries were read.
class DirectoryState {
 public:
  /// `status` was taken, and the reading begun, at or after `since`.
  DirectoryState(const struct stat& status, const timespec& since);

  /// Whether `now`, a later status of the same path, shows the same folder and no entry added,
  /// renamed or removed since. False also where the folder's time stamp was so young that such a
  /// change might not show in it.
  bool StillHolds(const struct stat& now) const;

 private:
  struct stat status_ {};
  bool shows_changes_ = false;
};

}  // namespace panelkit
