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

/// Machines opened from now on have the user's own folder in `folder`, if the system lets one
/// choose.
void KeepUserFilesIn(const std::filesystem::path& folder);

/// The system's text service for a code page of Windows ("windows-1252" is 1252).
std::unique_ptr<Text> TextOf(unsigned code_page);

/// Gives a file the attribute "hidden".
void Hide(const std::filesystem::path& file);

}  // namespace panelkit::test
