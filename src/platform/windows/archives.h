// Archives on Windows.
#pragma once

#include "platform/libarchive/archive_reader.h"

namespace panelkit::windows {

/// Reads archives by the libarchive that is part of Windows 10 and later (archiveint.dll). An older
/// Windows has no reader.
class WindowsArchives : public LibarchiveReader {
 public:
  explicit WindowsArchives(const Text& text);

  /// The file lies in the user's folder for temporary files.
  std::unique_ptr<UnpackedFile> Unpack(std::string_view bytes,
                                       std::int64_t modified) const override;
};

}  // namespace panelkit::windows
