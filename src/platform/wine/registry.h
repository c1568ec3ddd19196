// The registry of a Wine prefix as a 32-bit Windows program sees it.
#pragma once

#include <memory>
#include <string_view>

#include "platform/registry.h"
#include "platform/text.h"
#include "platform/wine/hive_file.h"

namespace panelkit {

/// HKEY_LOCAL_MACHINE of a prefix; other roots hold nothing. In a 64-bit prefix "Software" leads
/// below "Software\Wow6432Node". Each open sees the file as it is then; an open key keeps what it
/// saw.
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
