// Opening a cabinet file for reading.
#pragma once

#include <cstdint>
#include <memory>
#include <string_view>

#include "platform/wine/native_file.h"
#include "platform/wine/path_resolver.h"

namespace panelkit {

/// A plain file, open, or the code of winerror.h that tells why not.
struct OpenedCabinet {
  std::unique_ptr<OpenFile> file;
  std::uint32_t error = 0;
};

/// Opens the file at a Windows path (UTF-8). 2 where there is none, 3 where its folder is missing,
/// 5 for a folder, 13 for a pipe or a device, which is never waited for.
OpenedCabinet OpenCabinet(const PathResolver& paths, std::string_view windows_path);

}  // namespace panelkit
