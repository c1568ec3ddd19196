// A registry that holds only DirectPlay's list of applications.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace panelkit::test {

/// One application and its value "Path"; a subkey without one where it is left out.
struct ScriptedApplication {
  std::string name;
  std::optional<RegistryValue> path;
};

/// A text value as the registry stores it, closing character included.
RegistryValue TextValue(const std::string& text);

class ScriptedRegistry : public Registry {
 public:
  std::vector<ScriptedApplication> applications;

  std::unique_ptr<RegistryKey> RegOpenKeyA(std::uint32_t root,
                                           std::string_view path) const override;
};

}  // namespace panelkit::test
