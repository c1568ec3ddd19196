// Where the simulator is installed.
#pragma once

#include <string>

#include "platform/registry.h"
#include "platform/text.h"

namespace panelkit {

/// The simulator's folder by the list of applications that DirectPlay keeps in the registry: the
/// "Path" of the last entry whose name contains "Flight Simulator", case ignored. Empty where there
/// is no such entry, "Not Found" where its path cannot be read. Reads the registry afresh at each
/// call.
std::string FindSimulator(const Registry& registry, const Text& text);

}  // namespace panelkit
