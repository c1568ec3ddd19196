// The keys of the browser pane.
#pragma once

#include <webkit2/webkit2.h>

#include "platform/gtk/find_bar.h"

namespace panelkit {

/// Gives `view` and `find_bar` the keys that browsers have beside WebKit's own: Ctrl+F, F3, Ctrl+P,
/// Ctrl with + - 0, Alt with Left and Right. Both live in one pane and end with it.
void AttachPaneKeys(WebKitWebView* view, FindBar& find_bar);

}  // namespace panelkit
