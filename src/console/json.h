// Parts that several results have as JSON; docs/json.md describes the shape.
#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "platform/local_machine.h"

namespace panelkit {

using Json = nlohmann::ordered_json;

/// A path with the name that the system's own programs have for it.
inline Json JsonOfPath(const LocalMachine& machine, const std::string& windows_path) {
  return {{"path", windows_path}, {"native_path", machine.NativePath(windows_path)}};
}

}  // namespace panelkit
