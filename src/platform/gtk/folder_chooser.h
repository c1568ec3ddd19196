// The desktop's own dialog for picking folders.
#pragma once

#include <gtk/gtk.h>

#include <string>
#include <vector>

namespace panelkit {

/// Asks for folders in front of `window` and waits for the answer; begins in the folder `start`, or
/// where the desktop likes if that is empty. Native paths; empty if the user picks none.
std::vector<std::string> AskForFolders(GtkWindow* window, const std::string& title,
                                       const std::string& start);

}  // namespace panelkit
