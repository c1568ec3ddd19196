// Listings of a folder's entries, as Windows programs see them.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/wine/directory.h"

namespace panelkit {

/// Makes the listings of Files::List. The last folder, if it is no small one, is remembered: as
/// long as its time stamp shows no change, a second listing of it reads no entries, and for a
/// second after the first asks for no attributes again.
class Listing {
 public:
  /// The entries of the native folder that match the pattern ("*.gau"); nullopt if the folder
  /// cannot be read.
  std::optional<std::vector<ListedEntry>> List(const std::string& folder, std::string_view pattern,
                                               ListedEntries entries);

 private:
  struct Entry {
    DirectoryEntry entry;
    std::optional<bool> is_hidden = {};  // nullopt if not looked at.
  };

  bool Refresh(const std::string& folder);

  std::string folder_;
  std::optional<DirectoryState> state_;  // nullopt if no folder is remembered.
  std::chrono::steady_clock::time_point read_at_;
  std::vector<Entry> entries_;  // Those that a Windows path can hold, by their upper-cased names.
};

}  // namespace panelkit
