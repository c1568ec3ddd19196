// The size and the first place of a form on its monitor.
#pragma once

#include <windows.h>

#include "platform/form.h"
#include "platform/win32/screen_scale.h"

namespace panelkit::windows {

/// The outer size of a window in pixels.
SIZE SizeOf(HWND window);

/// Gives a window, which has its frame and its menu already, the client area of `description`, and
/// moves it into the work area of its monitor, beside the taskbar. Gives the scale that its
/// controls are to have: `scale`, or a smaller one where a high resolution leaves too little room.
ScreenScale FitWorkArea(HWND window, const FormDescription& description, const ScreenScale& scale);

}  // namespace panelkit::windows
