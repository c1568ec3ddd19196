// Why something is passed over, in words that go on "FILE: ".
#pragma once

#include <string>
#include <string_view>

#include "platform/archive.h"

namespace panelkit {

/// Empty for ArchiveFault::None.
std::string ReasonOf(ArchiveFault fault);

/// Why these bytes are no gauge file, which is a library for Windows; empty if they are one.
std::string ReasonAgainstGaugeFile(std::string_view bytes);

/// Why these bytes are no cabinet; empty if they begin as one.
std::string ReasonAgainstCabinet(std::string_view bytes);

}  // namespace panelkit
