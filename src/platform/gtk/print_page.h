// Printing of what the pane shows.
#pragma once

#include <webkit2/webkit2.h>

namespace panelkit {

/// Shows the system's print dialog and prints the page when the user says so. Returns at once: a
/// scan goes on beside the dialog.
void PrintPage(WebKitWebView* view);

}  // namespace panelkit
