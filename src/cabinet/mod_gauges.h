// The program-wide state, and the function that the cabinet service calls back.
//
// The service calls a plain function, without any pointer of ours. So the object that a walk
// belongs to, and what the walk fills, must be reachable by name; nothing else in the program is
// global.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "gauges/gauge_table.h"

namespace panelkit {

class CABFile;

namespace modGauges {

/// The gauges that the last analysis found on disk.
extern GaugeTable InstalledGauges;

/// The name, without its extension, of the cabinet that is being listed into InstalledGauges.
extern std::string CurrentCabinet;

/// The object that last started a walk.
extern std::shared_ptr<CABFile> CurrentCabFile;

/// Makes `Object` the one that notifications go to.
void SetCurrentCabFile(std::shared_ptr<CABFile> Object);

/// The function whose address the cabinet service gets: passes each notification to CurrentCabFile.
/// Answers 0 without an object.
std::uint32_t CabNotifyEntry(std::uint32_t Context, std::uint32_t Notification,
                             std::uintptr_t Param1, std::uintptr_t Param2);

}  // namespace modGauges
}  // namespace panelkit
