// Where the simulator is installed, by the registry.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "platform/text.h"

namespace panelkit {

/// The simulator's folder by the list of applications that DirectPlay keeps in the registry: the
/// "Path" of the last entry whose name contains "Flight Simulator", case ignored. Empty if there is
/// no such entry, "Not Found" if its path cannot be read. Reads the registry afresh at each call.
std::string FindSimulator(const Registry& registry, const Text& text);

/// Whether FindSimulator gives a folder.
bool HasSimulator(const Registry& registry, const Text& text);

/// The paths of all such entries, in the registry's order.
std::vector<std::string> FindSimulators(const Registry& registry, const Text& text);

/// The name of the Windows that the registry belongs to, "Microsoft Windows 7"; empty if it does
/// not say.
std::string WindowsVersion(const Registry& registry, const Text& text);

namespace modGauges {

/// What both registry functions give on failure.
inline constexpr const char* kNotFound = "Not Found";

/// The name of the subkey at `Index` below `KeyPath`, or "Not Found".
std::string GetRegSubKey(const Registry& registry, std::uint32_t Root, const std::string& KeyPath,
                         std::int32_t Index);

/// The value `ValueName` of `KeyPath` as text, or "Not Found". A text loses its closing character,
/// a binary value becomes upper-case hexadecimal digits, a number the first three of its at least
/// three decimal digits.
std::string GetRegValue(const Registry& registry, const Text& text, std::uint32_t Root,
                        const std::string& KeyPath, const std::string& ValueName);

}  // namespace modGauges
}  // namespace panelkit
