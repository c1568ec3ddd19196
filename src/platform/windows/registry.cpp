#include <windows.h>

#include <array>

#include "platform/windows/windows_machine.h"

namespace panelkit::windows {
namespace {

class OpenKey : public RegistryKey {
 public:
  OpenKey(HKEY key, const Text& text) : key_(key), text_(text) {}
  ~OpenKey() override { RegCloseKey(key_); }
  OpenKey(const OpenKey&) = delete;
  OpenKey& operator=(const OpenKey&) = delete;

  std::optional<std::string> RegEnumKeyA(std::int32_t index) const override {
    std::array<char, kRegistryBufferSize> name{};
    if (::RegEnumKeyA(key_, static_cast<DWORD>(index), name.data(), name.size()) != ERROR_SUCCESS) {
      return std::nullopt;
    }
    return text_.FromAnsi(name.data());
  }

  std::optional<RegistryValue> RegQueryValueExA(std::string_view name) const override {
    std::array<char, kRegistryBufferSize> bytes{};
    DWORD type = 0;
    DWORD size = bytes.size();
    if (::RegQueryValueExA(key_, text_.ToAnsi(name).c_str(), nullptr, &type,
                           reinterpret_cast<BYTE*>(bytes.data()), &size) != ERROR_SUCCESS) {
      return std::nullopt;
    }
    return RegistryValue{type, std::string(bytes.data(), size)};
  }

 private:
  HKEY key_;
  const Text& text_;
};

/// Predefined keys are 32-bit numbers, widened with their sign.
HKEY PredefinedKey(std::uint32_t root) {
  return reinterpret_cast<HKEY>(static_cast<LONG_PTR>(static_cast<std::int32_t>(root)));
}

}  // namespace

std::unique_ptr<RegistryKey> WindowsRegistry::RegOpenKeyA(std::uint32_t root,
                                                          std::string_view path) const {
  HKEY key = nullptr;
  if (RegOpenKeyExA(PredefinedKey(root), text_.ToAnsi(path).c_str(), 0, KEY_READ | KEY_WOW64_32KEY,
                    &key) != ERROR_SUCCESS) {
    return nullptr;
  }
  return std::make_unique<OpenKey>(key, text_);
}

}  // namespace panelkit::windows
