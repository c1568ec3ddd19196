// The names of the files that gauges come in.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/files.h"

namespace panelkit {

/// A gauge file, and a cabinet of gauges. In names of files, case is ignored.
inline constexpr std::string_view kGaugeFileExtension = ".gau";
inline constexpr std::string_view kCabinetExtension = ".cab";

/// What the Gauges folder holds, the one that is looked for first at the front.
// One in each source: g++ 12 for Windows lays an inline one into sections that cannot be joined.
[[maybe_unused]] constexpr std::array kGaugesExtensions{kGaugeFileExtension, kCabinetExtension};

/// A gauge among the entries of a cabinet; the case counts.
inline constexpr std::string_view kGaugeEntryExtension = ".xml";

/// The length of each of them.
inline constexpr std::size_t kExtensionLength = 4;

/// A file's or an entry's name without such an extension.
inline std::string LessExtension(std::string_view name) {
  return std::string(name.substr(0, name.size() - kExtensionLength));
}

/// The names of the plain files that Files::List gives; none where there is no such folder.
inline std::vector<std::string> FilesNamed(const Files& files, const std::string& pattern) {
  std::vector<std::string> names;
  if (auto listed = files.List(pattern, ListedEntries::PlainFiles)) {
    for (ListedEntry& entry : *listed) names.push_back(std::move(entry.name));
  }
  return names;
}

}  // namespace panelkit
