// The frame that a window manager puts around a window, and the place of framed windows.
#pragma once

#include <gtk/gtk.h>

namespace panelkit {

/// Outer size of a window in pixels, frame included as far as the window system tells it. Works for
/// a window that is not shown yet: X window managers tell the frame in advance when asked.
GdkRectangle FramedSize(GtkWindow* window);

/// Shows a window, or one that is shown already in front, and gives it the keyboard.
void Present(GtkWindow* window);

/// The monitor that counts as the screen, in pixels.
GdkRectangle PrimaryMonitor();

/// The part of that monitor which the desktop leaves to windows, in pixels.
GdkRectangle WorkArea();

/// Whether windows can be put at a place of our choice.
bool WindowsCanBePlaced();

}  // namespace panelkit
