#include "simulator/simulator_location.h"

#include <optional>
#include <string_view>

#include "text/matching.h"

namespace panelkit {
namespace {

constexpr const char* kApplications = R"(SOFTWARE\Microsoft\DirectPlay\Applications)";
constexpr const char* kOneApplication = R"(Software\Microsoft\DirectPlay\Applications\)";

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

std::string FindSimulator(const Registry& registry, const Text& text) {
  const auto folders = FindSimulators(registry, text);
  return folders.empty() ? std::string() : folders.back();
}

std::string WindowsVersion(const Registry& registry, const Text& text) {
  const std::string name =
      modGauges::GetRegValue(registry, text, HKEY_LOCAL_MACHINE_VALUE,
                             R"(Software\Microsoft\Windows NT\CurrentVersion)", "ProductName");
  return name == modGauges::kNotFound ? std::string() : name;
}

bool HasSimulator(const Registry& registry, const Text& text) {
  return !FindSimulator(registry, text).empty();
}

std::vector<std::string> FindSimulators(const Registry& registry, const Text& text) {
  std::vector<std::string> folders;
  for (std::int32_t Index = 0;; ++Index) {
    const std::string name =
        modGauges::GetRegSubKey(registry, HKEY_LOCAL_MACHINE_VALUE, kApplications, Index);
    if (name == modGauges::kNotFound) return folders;
    if (!ContainsIgnoringCase(name, "flight simulator")) continue;
    folders.push_back(modGauges::GetRegValue(registry, text, HKEY_LOCAL_MACHINE_VALUE,
                                             kOneApplication + name, "Path"));
  }
}

namespace modGauges {

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

}  // namespace modGauges
}  // namespace panelkit
