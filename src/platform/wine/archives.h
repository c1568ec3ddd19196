// Archives on Linux.
#pragma once

#include "platform/libarchive/archive_reader.h"
#include "platform/wine/path_resolver.h"

namespace panelkit {

/// Reads archives by the system's libarchive.
class WineArchives final : public LibarchiveReader {
 public:
  WineArchives(const PathResolver& resolver, const Text& text);

  /// The file lies in memory and has no name in any folder.
  std::unique_ptr<UnpackedFile> Unpack(std::string_view bytes,
                                       std::int64_t modified) const override;

 private:
  const PathResolver& resolver_;
};

}  // namespace panelkit
