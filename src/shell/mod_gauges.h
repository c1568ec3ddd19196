// The module of free functions, and the only state that is shared by the whole program.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "analysis/gauge_table.h"
#include "platform/registry.h"
#include "platform/text.h"

namespace panelkit {

class CABFile;

namespace modGauges {

/// The gauges that the last analysis found on disk.
extern GaugeTable InstalledGauges;

/// The name, without its extension, of the cabinet that is being listed into InstalledGauges.
extern std::string CurrentCabinet;

/// The object that last started a walk. The cabinet service calls back a plain function, which
/// finds its object here.
extern std::shared_ptr<CABFile> CurrentCabFile;

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

/// Makes `Object` the one that notifications go to.
void SetCurrentCabFile(std::shared_ptr<CABFile> Object);

/// The function whose address the cabinet service gets: passes each notification to CurrentCabFile.
/// Answers 0 without an object.
std::uint32_t CabNotifyEntry(std::uint32_t Context, std::uint32_t Notification,
                             std::uintptr_t Param1, std::uintptr_t Param2);

}  // namespace modGauges
}  // namespace panelkit
