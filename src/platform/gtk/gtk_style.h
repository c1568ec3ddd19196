// The look of the program's windows: the form's font, and paddings that fit the descriptions.
#pragma once

#include <gtk/gtk.h>

#include "platform/gtk/screen_scale.h"

namespace panelkit {

/// Installs the program's style sheet for the default screen. Colours stay those of the user's
/// theme, so that dark and high-contrast ones remain readable, and a font that the user has picked
/// by name in the desktop's settings is followed, also while the program runs. Its size is not:
/// places are fixed.
void InstallStyle(const ScreenScale& scale);

/// Puts a widget and all that it holds under the style sheet. A menu's popup is a window of its own
/// and needs it too.
void ApplyStyle(GtkWidget* widget);

}  // namespace panelkit
