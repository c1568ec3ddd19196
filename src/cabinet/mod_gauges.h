// The program-wide state of the gauge inventory, and the callback for the cabinet service.
//
// The service calls a plain function back and passes it no pointer of the caller's. So the callback
// finds the CABFile of the walk, and that one the table to fill, through globals. The program has
// no others.
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

/// Name, without its extension, of the cabinet whose gauges are being added to InstalledGauges.
extern std::string CurrentCabinet;

/// The object that last started a walk; null before the first one. It is kept with its event
/// handlers, which may view what is gone by then: nothing but a walk of that object calls them.
extern std::shared_ptr<CABFile> CurrentCabFile;

/// Sets the object that receives the notifications.
void SetCurrentCabFile(std::shared_ptr<CABFile> Object);

/// The handler for the cabinet service: passes each notification to CurrentCabFile and gives its
/// answer, 0 if there is no object. Throws CabError.
std::uint32_t CabNotifyEntry(std::uint32_t Context, std::uint32_t Notification,
                             std::uintptr_t Param1, std::uintptr_t Param2);

}  // namespace modGauges
}  // namespace panelkit
