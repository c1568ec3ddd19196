// The sentences of the status line, which standard error of the console companion shares.
#pragma once

#include <string_view>

#include "platform/files.h"

namespace panelkit {

/// Why a file could not be read or written, as the end of a sentence: "it is read-only". Empty for
/// FileFault::None.
std::string_view FaultText(FileFault fault);

}  // namespace panelkit
