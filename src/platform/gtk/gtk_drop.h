// Files and folders that are dropped on a window.
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <string>
#include <vector>

namespace panelkit {

/// Calls `taken`, from inside GTK's dispatch, with the native paths of what is dropped on `window`,
/// a browser view in it included: none of these takes drops itself any more. To be called once for
/// a window that holds all its widgets.
void TakeDrops(GtkWidget* window, std::function<void(const std::vector<std::string>& paths)> taken);

}  // namespace panelkit
