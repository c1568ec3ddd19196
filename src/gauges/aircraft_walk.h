// The walk over the aircraft folders.
#pragma once

#include <functional>
#include <string>

#include "platform/event_loop.h"
#include "platform/files.h"
#include "platform/form.h"

namespace panelkit {

/// Lists `FSPath`\Aircraft twice: to set the bar's Max to the number of entries, then to call
/// `on_aircraft` with the name of each folder, in listing order. Every entry counts for the bar,
/// plain files, "." and ".." included; its Value never passes Max, even if the folder grows between
/// the listings. Pending interface events are processed at each entry of both. False if the folder
/// cannot be listed.
bool WalkAircraft(const Files& files, EventLoop& loop, ProgressBar& bar, const std::string& FSPath,
                  const std::function<void(const std::string& aircraft)>& on_aircraft);

}  // namespace panelkit
