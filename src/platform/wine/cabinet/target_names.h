// Where the files of one walk are to be written.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/wine/path_resolver.h"

namespace panelkit {

/// Resolves as PathResolver::ForCreation does, but reads each folder only once: the walk itself
/// fills it, so that the resolver would have to read it again for every file.
class TargetNames {
 public:
  /// `paths` outlives this object.
  explicit TargetNames(const PathResolver& paths) : paths_(paths) {}

  /// The native path for a new file; nothing where its folder is missing.
  std::optional<std::string> Find(std::string_view windows_path);

 private:
  using NamesByLoweredName = std::unordered_map<std::string, std::string>;

  const PathResolver& paths_;
  std::unordered_map<std::string, NamesByLoweredName> folders_;
};

}  // namespace panelkit
