#include "support/scripted_registry.h"

#include <algorithm>
#include <cctype>

namespace panelkit::test {
namespace {

class ApplicationsKey : public RegistryKey {
 public:
  explicit ApplicationsKey(const ScriptedRegistry& registry) : registry_(registry) {}

  std::optional<std::string> RegEnumKeyA(std::int32_t index) const override {
    if (index < 0 || index >= std::ssize(registry_.applications)) return std::nullopt;
    return registry_.applications[index].name;
  }
  std::optional<RegistryValue> RegQueryValueExA(std::string_view /*name*/) const override {
    return std::nullopt;
  }

 private:
  const ScriptedRegistry& registry_;
};

class ApplicationKey : public RegistryKey {
 public:
  explicit ApplicationKey(const ScriptedApplication& application) : application_(application) {}

  std::optional<std::string> RegEnumKeyA(std::int32_t /*index*/) const override {
    return std::nullopt;
  }
  std::optional<RegistryValue> RegQueryValueExA(std::string_view name) const override {
    return name == "Path" ? application_.path : std::nullopt;
  }

 private:
  const ScriptedApplication& application_;
};

std::string Lowered(std::string_view text) {
  std::string lowered(text);
  for (char& c : lowered) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  return lowered;
}

}  // namespace

RegistryValue TextValue(const std::string& text) {
  return {1, text + '\0'};
}

std::unique_ptr<RegistryKey> ScriptedRegistry::RegOpenKeyA(std::uint32_t root,
                                                           std::string_view path) const {
  const std::string list = R"(software\microsoft\directplay\applications)";
  const std::string wanted = Lowered(path);
  if (root != HKEY_LOCAL_MACHINE_VALUE) return nullptr;
  if (wanted == list) return std::make_unique<ApplicationsKey>(*this);
  for (const ScriptedApplication& application : applications) {
    if (wanted == list + "\\" + Lowered(application.name)) {
      return std::make_unique<ApplicationKey>(application);
    }
  }
  return nullptr;
}

}  // namespace panelkit::test
