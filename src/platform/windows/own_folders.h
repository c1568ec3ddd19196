// Where the program keeps its own files.
#pragma once

#include <string>

namespace panelkit::windows {

/// "%LOCALAPPDATA%\Panelkit", without a closing backslash; made if it is missing. Empty if it
/// cannot be made.
std::string UserFolder();

/// Whether this process can make files in a folder. True also where Windows keeps such files for
/// the user in another place (a virtualised process under "Program Files").
bool CanWriteTo(const std::string& folder);

}  // namespace panelkit::windows
