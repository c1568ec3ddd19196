#include "support/scripted_registry.h"

#include <utility>

#include "text/matching.h"

namespace panelkit::test {
namespace {

// An opened key: the list with its applications, or one application with its value "Path".
class ScriptedKey : public RegistryKey {
 public:
  ScriptedKey(std::vector<ScriptedApplication> subkeys, std::optional<RegistryValue> path)
      : subkeys_(std::move(subkeys)), path_(std::move(path)) {}

  std::optional<std::string> RegEnumKeyA(std::int32_t index) const override {
    if (index >= std::ssize(subkeys_)) return std::nullopt;
    return subkeys_.at(index).name;
  }
  std::optional<RegistryValue> RegQueryValueExA(std::string_view name) const override {
    return name == "Path" ? path_ : std::nullopt;
  }

 private:
  std::vector<ScriptedApplication> subkeys_;
  std::optional<RegistryValue> path_;
};

}  // namespace

RegistryValue TextValue(const std::string& text) {
  return {1, text + '\0'};
}

std::unique_ptr<RegistryKey> ScriptedRegistry::RegOpenKeyA(std::uint32_t root,
                                                           std::string_view path) const {
  constexpr std::string_view kList = R"(software\microsoft\directplay\applications)";
  if (root != HKEY_LOCAL_MACHINE_VALUE || !ContainsIgnoringCase(path, kList)) return nullptr;
  path.remove_prefix(kList.size());
  if (path.empty()) return std::make_unique<ScriptedKey>(applications, std::nullopt);
  for (const auto& [name, value] : applications) {
    if (path != "\\" + name) continue;
    return std::make_unique<ScriptedKey>(std::vector<ScriptedApplication>{}, value);
  }
  return nullptr;
}

}  // namespace panelkit::test
