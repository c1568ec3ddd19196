// The walk over the aircraft folders.
#pragma once

#include <functional>
#include <string>

#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/form.h"

namespace panelkit {

/// Measures `FSPath`\Aircraft for the bar, then walks it: each folder in it, in listing order, goes
/// to `on_aircraft` by its name as listed. Every entry counts for the bar, plain files, "." and
/// ".." included; the bar never passes its Max, also when the folder grows between the two
/// listings. The event loop gets a turn at each entry of both. False where the folder cannot be
/// listed.
bool WalkAircraft(const Files& files, EventLoop& loop, ProgressBar& bar, const std::string& FSPath,
                  const std::function<void(const std::string& aircraft)>& on_aircraft);

}  // namespace panelkit
