// The frame that a window manager puts around a window, and the place of framed windows.
#pragma once

#include <gtk/gtk.h>

namespace panelkit {

/// Outer size of a window in pixels, with the frame as far as the window system tells its size.
/// Also works before the window is shown: X window managers then answer a request for the frame's
/// size.
GdkRectangle FramedSize(GtkWindow* window);

/// Shows a window or brings it to the front, and gives it the keyboard.
void Present(GtkWindow* window);

/// The monitor that counts as the screen, in pixels.
GdkRectangle PrimaryMonitor();

/// The part of that monitor which the desktop leaves to windows, in pixels.
GdkRectangle WorkArea();

/// Whether the program may choose the places of its windows (X11; not Wayland).
bool WindowsCanBePlaced();

}  // namespace panelkit
