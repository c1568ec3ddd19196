#include "platform/gtk/pane_keys.h"

#include <algorithm>

#include "platform/gtk/pane_menu.h"

namespace panelkit {
namespace {

constexpr double kZoomStep = 1.2;
constexpr double kLeastZoom = 0.5;
constexpr double kMostZoom = 4;

struct Pane {
  WebKitWebView* view;
  FindBar& find_bar;
};

bool Zoom(WebKitWebView* view, double level) {
  webkit_web_view_set_zoom_level(view, std::clamp(level, kLeastZoom, kMostZoom));
  return true;
}

bool ControlKey(guint key, const Pane& pane) {
  switch (key) {
    case GDK_KEY_f:
      pane.find_bar.Open();
      return true;
    case GDK_KEY_p:
      PrintPage(pane.view);
      return true;
    case GDK_KEY_plus:
    case GDK_KEY_equal:
    case GDK_KEY_KP_Add:
      return Zoom(pane.view, webkit_web_view_get_zoom_level(pane.view) * kZoomStep);
    case GDK_KEY_minus:
    case GDK_KEY_KP_Subtract:
      return Zoom(pane.view, webkit_web_view_get_zoom_level(pane.view) / kZoomStep);
    case GDK_KEY_0:
    case GDK_KEY_KP_0:
      return Zoom(pane.view, 1);
    default:
      return false;
  }
}

bool AltKey(guint key, const Pane& pane) {
  if (key == GDK_KEY_Left) webkit_web_view_go_back(pane.view);
  if (key == GDK_KEY_Right) webkit_web_view_go_forward(pane.view);
  return key == GDK_KEY_Left || key == GDK_KEY_Right;
}

bool FindKey(guint key, bool shift, const Pane& pane) {
  if (key != GDK_KEY_F3) return false;
  if (shift) {
    pane.find_bar.Previous();
  } else {
    pane.find_bar.Next();
  }
  return true;
}

/// Runs before WebKit asks the page, which takes a while: letters that are typed right after Ctrl+F
/// belong to the find bar.
gboolean KeyPressed(GtkWidget*, const GdkEventKey* event, gpointer data) {
  const Pane& pane = *static_cast<const Pane*>(data);
  const guint key = gdk_keyval_to_lower(event->keyval);
  const guint modifiers = event->state & gtk_accelerator_get_default_mod_mask();
  const bool shift = (modifiers & GDK_SHIFT_MASK) != 0;
  switch (modifiers & ~static_cast<guint>(GDK_SHIFT_MASK)) {
    case GDK_CONTROL_MASK:
      return ControlKey(key, pane) ? TRUE : FALSE;
    case GDK_MOD1_MASK:
      return AltKey(key, pane) ? TRUE : FALSE;
    case 0:
      return FindKey(key, shift, pane) ? TRUE : FALSE;
    default:
      return FALSE;
  }
}

}  // namespace

void AttachPaneKeys(WebKitWebView* view, FindBar& find_bar) {
  for (GtkWidget* widget : {GTK_WIDGET(view), find_bar.Widget()}) {
    g_signal_connect_data(
        widget, "key-press-event", G_CALLBACK(KeyPressed), new Pane{view, find_bar},
        [](gpointer data, GClosure*) { delete static_cast<Pane*>(data); }, GConnectFlags{});
  }
}

}  // namespace panelkit
