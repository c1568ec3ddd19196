// The system's own dialog for picking folders.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace panelkit::windows {

/// Asks for folders in front of `window` and waits for the answer; begins in the user's folder of
/// downloads where Windows has one. OLE is initialised on this thread. More than one folder can be
/// picked since Windows Vista. Empty if the user picks none.
std::vector<std::string> AskForFolders(HWND window, const std::string& title);

}  // namespace panelkit::windows
