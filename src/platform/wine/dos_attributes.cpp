#include "platform/wine/dos_attributes.h"

#include <sys/xattr.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <string_view>

#include "platform/wine/native_file.h"

namespace panelkit {

namespace {

constexpr const char* kAttribute = "user.DOSATTRIB";
constexpr unsigned kHidden = 2;
constexpr unsigned kSystem = 4;
constexpr mode_t kAnyWriter = S_IWUSR | S_IWGRP | S_IWOTH;

unsigned StoredAttributes(const std::string& native_path) {
  std::array<char, 64> buffer{};
  const ssize_t size = getxattr(native_path.c_str(), kAttribute, buffer.data(), buffer.size());
  const std::string_view text(buffer.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
  if (!text.starts_with("0x")) return 0;
  unsigned attributes = 0;
  std::from_chars(text.data() + 2, text.data() + text.size(), attributes, 16);
  return attributes;
}

}  // namespace

bool IsHiddenOrSystem(const std::string& native_path) {
  return NameOf(native_path).starts_with('.') ||
         (StoredAttributes(native_path) & (kHidden | kSystem)) != 0;
}

bool IsReadOnly(const struct stat& status) {
  return (status.st_mode & kAnyWriter) == 0;
}

}  // namespace panelkit
