// A machine of this system for tests, kept to a temporary folder.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/local_machine.h"

namespace panelkit::test {

/// The machine of this system with `app` as its program folder and, where the system needs one,
/// `root` as the Wine prefix whose registry and drives it sees.
std::unique_ptr<LocalMachine> OpenMachineAt(const std::filesystem::path& root,
                                            const std::filesystem::path& app);

}  // namespace panelkit::test
