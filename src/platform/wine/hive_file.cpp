#include "platform/wine/hive_file.h"

#include "platform/files.h"
#include "platform/wine/native_file.h"

namespace panelkit {

std::shared_ptr<const Hive> HiveFile::Current() {
  const auto status = StatusOf(path_);
  if (!status) return nullptr;
  if (!hive_ || !IsSameState(*status, read_)) {
    auto text = ReadPlainFile(path_, kLargestFile).bytes;
    if (!text) return nullptr;
    hive_ = std::make_shared<const Hive>(*std::move(text));
    read_ = *status;
  }
  return hive_;
}

}  // namespace panelkit
