#include "platform/gtk/window_frame.h"

#include <X11/Xatom.h>
#include <gdk/gdkx.h>

#include <memory>

namespace panelkit {
namespace {

constexpr gint64 kLongestWait = 200000;  // Microseconds that a window manager gets to answer.
constexpr gulong kPollPause = 2000;      // Microseconds.

/// Reads _NET_FRAME_EXTENTS: four cardinals, left, right, top, bottom. False if it is not set.
bool ReadExtents(GdkWindow* window, GtkBorder& extents) {
  GdkDisplay* display = gdk_window_get_display(window);
  Atom type = None;
  int format = 0;
  unsigned long count = 0;
  unsigned long rest = 0;
  unsigned char* found = nullptr;
  XGetWindowProperty(GDK_DISPLAY_XDISPLAY(display), GDK_WINDOW_XID(window),
                     gdk_x11_get_xatom_by_name_for_display(display, "_NET_FRAME_EXTENTS"), 0, 4,
                     False, XA_CARDINAL, &type, &format, &count, &rest, &found);
  const std::unique_ptr<unsigned char, int (*)(void*)> owner(found, XFree);
  if (type != XA_CARDINAL || format != 32 || count != 4) return false;
  const auto* sides = reinterpret_cast<const unsigned long*>(found);
  const auto pixels = [&](int side) {
    return static_cast<gint16>(sides[side] /
                               static_cast<unsigned long>(gdk_window_get_scale_factor(window)));
  };
  extents = {pixels(0), pixels(1), pixels(2), pixels(3)};
  return true;
}

/// Sends _NET_REQUEST_FRAME_EXTENTS (Extended Window Manager Hints) and waits for the answer.
GtkBorder AskForExtents(GdkWindow* window) {
  GtkBorder extents = {};
  GdkDisplay* display = gdk_window_get_display(window);
  GdkScreen* screen = gdk_window_get_screen(window);
  const char* const message = "_NET_REQUEST_FRAME_EXTENTS";
  if (!GDK_IS_X11_DISPLAY(display) ||
      !gdk_x11_screen_supports_net_wm_hint(screen, gdk_atom_intern_static_string(message))) {
    return extents;
  }
  XEvent request = {};
  request.xclient.type = ClientMessage;
  request.xclient.window = GDK_WINDOW_XID(window);
  request.xclient.message_type = gdk_x11_get_xatom_by_name_for_display(display, message);
  request.xclient.format = 32;
  XSendEvent(GDK_DISPLAY_XDISPLAY(display), GDK_WINDOW_XID(gdk_screen_get_root_window(screen)),
             False, SubstructureRedirectMask | SubstructureNotifyMask, &request);
  const gint64 end = g_get_monotonic_time() + kLongestWait;
  while (!ReadExtents(window, extents) && g_get_monotonic_time() < end) g_usleep(kPollPause);
  return extents;
}

GdkMonitor* FirstMonitor() {
  GdkDisplay* display = gdk_display_get_default();
  GdkMonitor* monitor = gdk_display_get_primary_monitor(display);
  return monitor != nullptr ? monitor : gdk_display_get_monitor(display, 0);
}

}  // namespace

GdkRectangle FramedSize(GtkWindow* window) {
  GtkWidget* widget = GTK_WIDGET(window);
  GdkRectangle frame = {};
  if (gtk_widget_get_mapped(widget)) {
    gdk_window_get_frame_extents(gtk_widget_get_window(widget), &frame);
    return frame;
  }
  gtk_widget_realize(widget);
  GtkRequisition size = {};
  gtk_widget_get_preferred_size(widget, &size, nullptr);
  const GtkBorder sides = AskForExtents(gtk_widget_get_window(widget));
  frame.width = size.width + sides.left + sides.right;
  frame.height = size.height + sides.top + sides.bottom;
  return frame;
}

void Present(GtkWindow* window) {
  gtk_widget_show(GTK_WIDGET(window));
  GdkWindow* gdk_window = gtk_widget_get_window(GTK_WIDGET(window));
  // Window managers give the keyboard neither to a new tool window nor to a window that no action
  // of the user has asked for, so the window asks for it. The time of the click is not known here
  // any more; the present time serves.
  const guint32 now = GDK_IS_X11_WINDOW(gdk_window) ? gdk_x11_get_server_time(gdk_window)
                                                    : static_cast<guint32>(GDK_CURRENT_TIME);
  gtk_window_present_with_time(window, now);
}

GdkRectangle PrimaryMonitor() {
  GdkRectangle place = {};
  if (GdkMonitor* monitor = FirstMonitor()) gdk_monitor_get_geometry(monitor, &place);
  return place;
}

GdkRectangle WorkArea() {
  GdkRectangle place = {};
  if (GdkMonitor* monitor = FirstMonitor()) gdk_monitor_get_workarea(monitor, &place);
  return place;
}

bool WindowsCanBePlaced() {
  return GDK_IS_X11_DISPLAY(gdk_display_get_default());
}

}  // namespace panelkit
