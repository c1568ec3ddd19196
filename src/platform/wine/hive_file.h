// A hive on disk, parsed once for each state of its file.
#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>

#include "platform/wine/hive.h"

namespace panelkit {

/// The file `system.reg` of a prefix.
class HiveFile {
 public:
  explicit HiveFile(std::string native_path) : path_(std::move(native_path)) {}

  /// The hive as the file holds it now: read again when another file stands there or its size or
  /// time stamp changed. Null where it cannot be read.
  std::shared_ptr<const Hive> Current();

 private:
  std::string path_;
  struct stat read_ {};
  std::shared_ptr<const Hive> hive_;
};

}  // namespace panelkit
