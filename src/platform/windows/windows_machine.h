// This Windows as the machine of seam 2.
#pragma once

#include <memory>
#include <string>

#include "platform/local_machine.h"

namespace panelkit::windows {

/// Opens this Windows with `app_folder` as the program's folder, without a closing backslash.
std::unique_ptr<LocalMachine> OpenWindows(std::string app_folder);

}  // namespace panelkit::windows
