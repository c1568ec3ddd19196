// The style sheet of the program's windows: their font, and paddings that fit the fixed places.
#pragma once

#include <gtk/gtk.h>

#include "platform/gtk/screen_scale.h"

namespace panelkit {

/// Installs the program's style sheet for the default screen. Colours stay those of the user's
/// theme, so that dark and high-contrast ones remain readable, and a font that the user has picked
/// by name in the desktop's settings is followed, also while the program runs. Its size is not:
/// places are fixed.
void InstallStyle(const ScreenScale& scale);

/// Applies the style sheet to a widget and all that it holds. A menu's popup is a window of its own
/// and needs a call of its own.
void ApplyStyle(GtkWidget* widget);

}  // namespace panelkit
