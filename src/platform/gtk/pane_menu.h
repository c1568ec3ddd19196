// The context menu of the browser pane, and printing.
#pragma once

#include <webkit2/webkit2.h>

#include "pane/pane_policy.h"

namespace panelkit {

/// Gives the pane's context menu an entry that prints, takes away what leads nowhere here (new
/// windows, downloads, the inspector), and has `policy`, which must outlive `view`, let the entry
/// that reloads through.
void AttachPaneMenu(WebKitWebView* view, PanePolicy& policy);

/// Shows the system's print dialog and prints the page that `view` shows when the user says so.
/// Returns at once: a scan goes on beside the dialog.
void PrintPage(WebKitWebView* view);

}  // namespace panelkit
