// This Windows as the machine that the program runs on.
#pragma once

#include <memory>
#include <string>

#include "platform/local_machine.h"

namespace panelkit::windows {

/// Opens this Windows with `program_folder`, without a closing backslash, as the folder that the
/// program lies in.
std::unique_ptr<LocalMachine> OpenWindows(std::string program_folder);

}  // namespace panelkit::windows
