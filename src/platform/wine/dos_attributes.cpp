#include "platform/wine/dos_attributes.h"

#include <sys/xattr.h>

#include <array>
#include <charconv>
#include <string_view>

namespace panelkit {

namespace {

constexpr const char* kAttribute = "user.DOSATTRIB";
constexpr unsigned kHidden = 2;
constexpr unsigned kSystem = 4;
constexpr mode_t kAnyWriter = S_IWUSR | S_IWGRP | S_IWOTH;

}  // namespace

bool IsHiddenOrSystem(const std::string& native_path) {
  if (NameOf(native_path).starts_with('.')) return true;
  std::array<char, 64> buffer{};
  const auto size = getxattr(native_path.c_str(), kAttribute, buffer.data(), buffer.size());
  const std::string_view text(buffer.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
  if (!text.starts_with("0x")) return false;
  unsigned attributes = 0;
  std::from_chars(text.data() + 2, text.data() + text.size(), attributes, 16);
  return (attributes & (kHidden | kSystem)) != 0;
}

bool IsReadOnly(const struct stat& status) {
  return (status.st_mode & kAnyWriter) == 0;
}

}  // namespace panelkit
