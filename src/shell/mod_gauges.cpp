#include "shell/mod_gauges.h"

#include <optional>
#include <utility>

#include "cabinet/cab_file.h"

namespace panelkit::modGauges {
namespace {

constexpr std::uint32_t kRegBinary = 3;
constexpr std::uint32_t kRegDword = 4;

std::string HexDigits(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string digits;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    digits += kDigits[value / 16];
    digits += kDigits[value % 16];
  }
  return digits;
}

// At least three decimal digits, cut to one less than the size of the stored number.
std::string NumberText(std::string_view bytes) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < bytes.size() && i < sizeof number; ++i) {
    number |= std::uint32_t{static_cast<unsigned char>(bytes[i])} << (8 * i);
  }
  std::string digits = std::to_string(number);
  if (digits.size() < 3) digits.insert(0, 3 - digits.size(), '0');
  return digits.substr(0, bytes.empty() ? 0 : bytes.size() - 1);
}

std::string Render(const RegistryValue& value, const Text& text) {
  switch (value.type) {
    case kRegBinary:
      return HexDigits(value.bytes);
    case kRegDword:
      return NumberText(value.bytes);
    default:
      return value.bytes.empty()
                 ? std::string()
                 : text.FromAnsi(std::string_view(value.bytes).substr(0, value.bytes.size() - 1));
  }
}

}  // namespace

GaugeTable InstalledGauges;
std::string CurrentCabinet;
std::shared_ptr<CABFile> CurrentCabFile;

std::string GetRegSubKey(const Registry& registry, std::uint32_t Root, const std::string& KeyPath,
                         std::int32_t Index) {
  const auto key = registry.RegOpenKeyA(Root, KeyPath);
  return key ? key->RegEnumKeyA(Index).value_or(kNotFound) : kNotFound;
}

std::string GetRegValue(const Registry& registry, const Text& text, std::uint32_t Root,
                        const std::string& KeyPath, const std::string& ValueName) {
  const auto key = registry.RegOpenKeyA(Root, KeyPath);
  const auto value = key ? key->RegQueryValueExA(ValueName) : std::nullopt;
  return value ? Render(*value, text) : kNotFound;
}

void SetCurrentCabFile(std::shared_ptr<CABFile> Object) {
  CurrentCabFile = std::move(Object);
}

std::uint32_t CabNotifyEntry(std::uint32_t Context, std::uint32_t Notification,
                             std::uintptr_t Param1, std::uintptr_t Param2) {
  if (!CurrentCabFile) return 0;
  return CurrentCabFile->CabCallBack(Context, Notification, Param1, Param2);
}

}  // namespace panelkit::modGauges
