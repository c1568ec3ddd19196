// The context menu of the browser pane.
#pragma once

#include <webkit2/webkit2.h>

namespace panelkit {

/// Gives the pane's context menu a "Print" entry and takes away what leads nowhere here: new
/// windows, downloads, the inspector.
void AttachPaneMenu(WebKitWebView* view);

}  // namespace panelkit
