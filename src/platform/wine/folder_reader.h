// The entries of a native folder.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace panelkit {

/// One entry as the folder itself tells it.
struct FolderEntry {
  std::string name;
  unsigned char type = 0;  ///< DT_REG, DT_DIR, ..., DT_UNKNOWN of dirent.h.
};

/// All entries but "." and "..", in no order; nullopt if the folder cannot be read.
std::optional<std::vector<FolderEntry>> ReadFolder(const std::string& native_path);

}  // namespace panelkit
