// The entries of a native folder, and whether what was read of it still holds.
#pragma once

#include <sys/stat.h>

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

/// A folder's state, to be taken before its entries are read.
class DirectoryState {
 public:
  explicit DirectoryState(const struct stat& status);

  /// Whether `now`, a later status of the same path, shows the same folder and no entry added,
  /// renamed or removed since. False also where the folder was so young that such a change might
  /// not show in its time stamp.
  bool StillHolds(const struct stat& now) const;

 private:
  struct stat status_ {};
  bool shows_changes_ = false;
};

}  // namespace panelkit
