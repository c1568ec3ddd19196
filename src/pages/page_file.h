// The file that a page is shown from.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace panelkit {

/// Where a page was written.
struct PagePlace {
  std::string wanted;  ///< The path that it was to have.
  std::string path;    ///< The path that it has; empty if it could be written nowhere.
  FileFault fault = FileFault::None;  ///< Why `wanted` could not be written.
};

/// Writes a page, its `bytes` in the ANSI code page, to `PagePath` or, if that cannot be written,
/// to the file of that name in the user's own folder.
PagePlace WritePage(Files& files, const std::string& PagePath, std::string_view bytes);

}  // namespace panelkit
