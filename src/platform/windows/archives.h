// Archives on Windows.
#pragma once

#include "platform/libarchive/archive_reader.h"

namespace panelkit::windows {

/// Reads archives by the libarchive that is part of the program.
class WindowsArchives : public LibarchiveReader {
 public:
  explicit WindowsArchives(const Text& text);

  /// The file lies in the user's folder for temporary files.
  std::unique_ptr<UnpackedFile> Unpack(std::string_view bytes,
                                       std::int64_t modified) const override;
};

}  // namespace panelkit::windows
