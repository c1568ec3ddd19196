#include "support/scripted_registry.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace panelkit::test {
namespace {

// An opened key: the list with its applications, or one application with its value "Path".
class ScriptedKey : public RegistryKey {
 public:
  ScriptedKey(std::vector<ScriptedApplication> subkeys, std::optional<RegistryValue> path)
      : subkeys_(std::move(subkeys)), path_(std::move(path)) {}

  std::optional<std::string> RegEnumKeyA(std::int32_t index) const override {
    if (index < 0 || index >= std::ssize(subkeys_)) return std::nullopt;
    return subkeys_[index].name;
  }
  std::optional<RegistryValue> RegQueryValueExA(std::string_view name) const override {
    return name == "Path" ? path_ : std::nullopt;
  }

 private:
  std::vector<ScriptedApplication> subkeys_;
  std::optional<RegistryValue> path_;
};

bool SameKey(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](unsigned char x, unsigned char y) {
    return std::tolower(x) == std::tolower(y);
  });
}

}  // namespace

RegistryValue TextValue(const std::string& text) {
  return {1, text + '\0'};
}

std::unique_ptr<RegistryKey> ScriptedRegistry::RegOpenKeyA(std::uint32_t root,
                                                           std::string_view path) const {
  const std::string list = R"(Software\Microsoft\DirectPlay\Applications)";
  if (root != HKEY_LOCAL_MACHINE_VALUE) return nullptr;
  if (SameKey(path, list)) return std::make_unique<ScriptedKey>(applications, std::nullopt);
  for (const auto& [name, value] : applications) {
    if (SameKey(path, list + "\\" + name)) {
      return std::make_unique<ScriptedKey>(std::vector<ScriptedApplication>{}, value);
    }
  }
  return nullptr;
}

}  // namespace panelkit::test
