// The file that an entry is written to.
#pragma once

#include <cstdint>
#include <string>

#include "platform/wine/new_file.h"

namespace panelkit {

/// A new file that takes its name in one step when it is whole. Until then it stands beside that
/// place under a name of its own, and its end removes it; what stood there stays as it was.
class TargetFile {
 public:
  /// Creates the file for the native path `path`, without permission to write for anyone if
  /// `read_only`.
  TargetFile(std::string path, bool read_only);

  /// Why the file could not be created (a code of winerror.h), or 0.
  std::uint32_t Error() const { return error_; }

  const OpenFile& File() const { return file_.File(); }

  /// Stamps the file with a time in the FAT layout, taken as local time. A stamp that names no date
  /// leaves the present time.
  void SetTime(std::uint16_t date, std::uint16_t time) const;

  /// Gives the file its name; a file or a link there gives way, a folder does not (5). 0 or a code
  /// of winerror.h.
  std::uint32_t Commit();

 private:
  std::string path_;
  NewFile file_;
  std::uint32_t error_ = 0;
};

}  // namespace panelkit
