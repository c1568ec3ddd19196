// Finding a folder's entry with case ignored, without reading a large folder for each name.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace panelkit {

/// Remembers the names in folders that were searched. A folder is read again when its time stamp
/// shows a change since, or is so young that a change might not show.
class FolderIndex {
 public:
  /// Names in the native folder that equal `name` with case ignored, in byte order.
  std::vector<std::string> Matches(const std::string& folder, std::string_view name);
};

}  // namespace panelkit
