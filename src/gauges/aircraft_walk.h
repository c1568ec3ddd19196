// The walk over the aircraft folders.
#pragma once

#include <functional>
#include <string>

#include "platform/event_loop.h"
#include "platform/files.h"

namespace panelkit {

/// Called with 0 once the entries are counted, then after each of them. `done` never passes
/// `entries`, even if the folder grows meanwhile; both stay at 32,767 beyond.
using OnWalkProgress = std::function<void(int done, int entries)>;

/// Lists `FSPath`\Aircraft twice: to count its entries, then to call `on_aircraft` with the name of
/// each folder, in listing order. Every entry counts for the progress, plain files, "." and ".."
/// included. Pending interface events are processed at each entry of both. False if the folder
/// cannot be listed.
bool WalkAircraft(const Files& files, EventLoop& loop, const std::string& FSPath,
                  const OnWalkProgress& on_progress,
                  const std::function<void(const std::string& aircraft)>& on_aircraft);

}  // namespace panelkit
