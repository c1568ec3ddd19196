// Archived gauges that newer ones of their names have replaced.
#pragma once

#include <string>
#include <vector>

#include "platform/files.h"

namespace panelkit {

/// Takes `file`, an archived gauge that gave way to the newer one `name`, out of the folder
/// `spare`: deletes it if its bytes are those of the newer one or are kept already, else keeps it
/// in `spare`\Older, as "NAME.2026-11-25 20.11.05". It stays where it is if that cannot be done.
void KeepOlder(Files& files, const std::string& spare, const std::string& file,
               const std::string& name);

/// The file in `spare`\Older that the typed text stands for: the newest one of the name, or one by
/// its whole name; empty if there is none.
std::string OlderFileName(const Files& files, const std::string& spare, const std::string& typed);

/// The name that a file of `spare`\Older had as a gauge.
std::string GaugeNameOfOlder(const std::string& older);

}  // namespace panelkit
