// A registry's answers as text.
#pragma once

#include <optional>
#include <string>

#include "platform/registry.h"

namespace panelkit::test {

/// The names of a key's subkeys in their order, "|" behind each; "(no key)" where there is none.
inline std::string Subkeys(const Registry& registry, std::string_view path) {
  const auto key = registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, path);
  if (!key) return "(no key)";
  std::string names = key->RegEnumKeyA(-1).value_or("");
  for (int i = 0; const auto name = key->RegEnumKeyA(i); ++i) names += *name + '|';
  return names;
}

/// Type and bytes of a value, each 0 as "$"; "(none)" where there is none.
inline std::string Value(const Registry& registry, std::string_view path, std::string_view name) {
  const auto key = registry.RegOpenKeyA(HKEY_LOCAL_MACHINE_VALUE, path);
  const auto value = key ? key->RegQueryValueExA(name) : std::nullopt;
  if (!value) return "(none)";
  std::string bytes = value->bytes;
  for (char& c : bytes) c = c == '\0' ? '$' : c;
  return std::to_string(value->type) + ' ' + bytes;
}

}  // namespace panelkit::test
