#include "platform/win32/form_size.h"

#include <algorithm>

namespace panelkit::windows {
namespace {

/// Below this resolution nobody reads the form, however small the monitor.
constexpr int kLeastDpi = 48;

/// What the frame and the menu bar add to the client area.
SIZE FrameOf(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  const SIZE outer = SizeOf(window);
  return {outer.cx - client.right, outer.cy - client.bottom};
}

void Resize(HWND window, int width, int height) {
  SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

// Measured rather than computed: a menu bar may take more than one line.
void FitClientArea(HWND window, const FormDescription& description, const ScreenScale& scale) {
  const int width = scale.PixelsX(description.width) + FrameOf(window).cx;
  Resize(window, width, SizeOf(window).cy);
  Resize(window, width, scale.PixelsY(description.height) + FrameOf(window).cy);
}

/// A place for the upper end of a length, between `least` and where its lower end is at `most`.
LONG Inside(LONG place, LONG length, LONG least, LONG most) {
  return std::max(least, std::min(place, most - length));
}

}  // namespace

SIZE SizeOf(HWND window) {
  RECT outer{};
  GetWindowRect(window, &outer);
  return {outer.right - outer.left, outer.bottom - outer.top};
}

ScreenScale FitWorkArea(HWND window, const FormDescription& description, const ScreenScale& scale) {
  FitClientArea(window, description, scale);
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  if (!GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor)) return scale;
  const RECT& area = monitor.rcWork;
  const SIZE frame = FrameOf(window);
  const int dpi = std::min(
      {scale.dpi_x, ScreenScale::DpiThatFits(description.width, area.right - area.left - frame.cx),
       ScreenScale::DpiThatFits(description.height, area.bottom - area.top - frame.cy)});
  const int readable = std::max(dpi, kLeastDpi);
  const ScreenScale fitting = readable < scale.dpi_x ? ScreenScale{readable, readable} : scale;
  FitClientArea(window, description, fitting);
  RECT outer{};
  GetWindowRect(window, &outer);
  const SIZE size = SizeOf(window);
  SetWindowPos(window, nullptr, Inside(outer.left, size.cx, area.left, area.right),
               Inside(outer.top, size.cy, area.top, area.bottom), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  return fitting;
}

}  // namespace panelkit::windows
