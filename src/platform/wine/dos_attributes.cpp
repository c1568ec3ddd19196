#include "platform/wine/dos_attributes.h"

#include <fcntl.h>
#include <sys/syscall.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstdint>
#include <span>
#include <string_view>

namespace panelkit {

namespace {

constexpr const char* kAttribute = "user.DOSATTRIB";
constexpr unsigned kHidden = 2;
constexpr unsigned kSystem = 4;
constexpr mode_t kAnyWriter = S_IWUSR | S_IWGRP | S_IWOTH;

using AttributeText = std::array<char, 64>;

/// What the text of the attribute says, of which `size` bytes (or an error) were read.
bool SaysHiddenOrSystem(const AttributeText& buffer, long size) {
  const std::string_view text(buffer.data(), size > 0 ? static_cast<std::size_t>(size) : 0);
  if (!text.starts_with("0x")) return false;
  unsigned attributes = 0;
  std::from_chars(text.data() + 2, text.data() + text.size(), attributes, 16);
  return (attributes & (kHidden | kSystem)) != 0;
}

/// getxattrat(2) of Linux 6.13, which the C library does not know yet: its number on every
/// architecture, and its argument.
constexpr long kGetXattrAt = 464;
struct XattrArguments {
  std::uint64_t value;
  std::uint32_t size;
  std::uint32_t flags;
};

/// The attribute's size, or -1 with errno set, as getxattr(2) gives it; for a buffer of 0 bytes it
/// reads nothing.
long ReadAttributeAt(int folder, const std::string& name, std::span<char> buffer) {
  XattrArguments arguments{reinterpret_cast<std::uintptr_t>(buffer.data()),
                           static_cast<std::uint32_t>(buffer.size()), 0};
  return syscall(kGetXattrAt, folder, name.c_str(), 0, kAttribute, &arguments, sizeof arguments);
}

}  // namespace

bool IsHiddenOrSystem(const std::string& native_path) {
  if (NameOf(native_path).starts_with('.')) return true;
  AttributeText buffer{};
  return SaysHiddenOrSystem(
      buffer, getxattr(native_path.c_str(), kAttribute, buffer.data(), buffer.size()));
}

FolderAttributes::FolderAttributes(std::string folder)
    : folder_(std::move(folder)), opened_(folder_, O_PATH | O_DIRECTORY) {}

bool FolderAttributes::IsHiddenOrSystem(const std::string& name) const {
  if (name.starts_with('.')) return true;
  AttributeText buffer{};
  // Most files have none, which is told sooner where nothing is to be read.
  long size = ReadAttributeAt(opened_.Descriptor(), name, {});
  if (size > 0) size = ReadAttributeAt(opened_.Descriptor(), name, buffer);
  // An older kernel, or a sandbox that knows none of its calls.
  const bool is_unknown = size < 0 && (errno == ENOSYS || errno == EPERM || errno == EBADF);
  return is_unknown ? panelkit::IsHiddenOrSystem(folder_ + '/' + name)
                    : SaysHiddenOrSystem(buffer, size);
}

bool IsReadOnly(const struct stat& status) {
  return (status.st_mode & kAnyWriter) == 0;
}

}  // namespace panelkit
