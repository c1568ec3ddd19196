// The read-only part of the Windows registry that the program needs.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace panelkit {

/// The predefined key of the machine's settings, as winreg.h numbers it.
inline constexpr std::uint32_t HKEY_LOCAL_MACHINE_VALUE = 0x80000002;

/// The program's buffer, in bytes: a subkey name or a value that does not fit counts as a failure.
inline constexpr std::size_t kRegistryBufferSize = 2048;

/// A value as the registry stores it.
struct RegistryValue {
  std::uint32_t type = 0;  ///< Type code of winnt.h: 1 REG_SZ, 3 REG_BINARY, 4 REG_DWORD, ...
  std::string bytes;       ///< Stored bytes; texts in the ANSI code page, closing 0 included.
};

/// An open key. Its end closes it (RegCloseKey).
class RegistryKey {
 public:
  virtual ~RegistryKey() = default;

  /// UTF-8 name of the subkey at `index`, counted from 0 in the registry's order; nullopt past the
  /// last one, for a negative index, or where the name does not fit the buffer.
  virtual std::optional<std::string> RegEnumKeyA(std::int32_t index) const = 0;

  /// The value `name` (UTF-8, case ignored); nullopt if there is none or it does not fit.
  virtual std::optional<RegistryValue> RegQueryValueExA(std::string_view name) const = 0;
};

/// The registry as a 32-bit program sees it.
class Registry {
 public:
  virtual ~Registry() = default;

  /// Opens `path` (UTF-8, parts separated by backslashes, case ignored) below the predefined key
  /// `root`; null where it is absent or closed to us.
  virtual std::unique_ptr<RegistryKey> RegOpenKeyA(std::uint32_t root,
                                                   std::string_view path) const = 0;
};

}  // namespace panelkit
