// Finding a folder's entry with case ignored, without reading a large folder for each name.
#pragma once

#include <sys/stat.h>

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/wine/folder_reader.h"

namespace panelkit {

/// Remembers the names in folders that were searched. A folder is read again when its time stamp
/// shows a change since, or was so young that a later change might not show.
class FolderIndex {
 public:
  /// Names in the native folder that equal `name` with case ignored, in byte order.
  std::vector<std::string> Matches(const std::string& folder, std::string_view name);

 private:
  struct Folder {
    FolderState state;
    std::unordered_map<std::string, std::vector<std::string>> by_lowered_name;
  };
  static Folder Read(const std::string& folder, const struct stat& status);

  std::unordered_map<std::string, Folder> folders_;
};

}  // namespace panelkit
