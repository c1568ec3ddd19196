// The registry of a Wine prefix as a 32-bit Windows program sees it.
#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>
#include <string_view>

#include "platform/registry.h"
#include "platform/text.h"
#include "platform/wine/hive.h"

namespace panelkit {

/// The file `system.reg` of a prefix, parsed once for each state of it.
class HiveFile {
 public:
  explicit HiveFile(std::string native_path) : path_(std::move(native_path)) {}

  /// The hive as the file holds it now: read again if another file stands there or its size or
  /// time stamp changed. Null if it cannot be read.
  std::shared_ptr<const Hive> Current();

 private:
  std::string path_;
  struct stat read_ {};
  std::shared_ptr<const Hive> hive_;
};

/// HKEY_LOCAL_MACHINE of a prefix; other roots hold nothing. In a 64-bit prefix "Software" leads
/// below "Software\Wow6432Node". Each open sees the file as it is then; an open key keeps what it
/// saw. Names cross the code page as in Windows' ANSI calls: a letter that it lacks is '?', so a
/// subkey whose name holds one is enumerated but cannot be opened.
class WineRegistry final : public Registry {
 public:
  /// Both live longer than this object.
  WineRegistry(HiveFile& file, const Text& text) : file_(file), text_(text) {}

  std::unique_ptr<RegistryKey> RegOpenKeyA(std::uint32_t root,
                                           std::string_view path) const override;

 private:
  HiveFile& file_;
  const Text& text_;
};

/// The number of the ANSI code page that the hive names, 1252 where it names none.
unsigned CodePageOf(const Hive* hive);

}  // namespace panelkit
