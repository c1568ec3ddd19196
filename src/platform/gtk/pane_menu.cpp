#include "platform/gtk/pane_menu.h"

#include <gtk/gtkunixprint.h>

#include <algorithm>
#include <array>

#include "platform/gtk/gtk_pointers.h"

namespace panelkit {
namespace {

constexpr std::array kKept{
    WEBKIT_CONTEXT_MENU_ACTION_GO_BACK,
    WEBKIT_CONTEXT_MENU_ACTION_GO_FORWARD,
    WEBKIT_CONTEXT_MENU_ACTION_STOP,
    WEBKIT_CONTEXT_MENU_ACTION_RELOAD,
    WEBKIT_CONTEXT_MENU_ACTION_OPEN_LINK,
    WEBKIT_CONTEXT_MENU_ACTION_COPY_LINK_TO_CLIPBOARD,
    WEBKIT_CONTEXT_MENU_ACTION_COPY_IMAGE_TO_CLIPBOARD,
    WEBKIT_CONTEXT_MENU_ACTION_CUT,
    WEBKIT_CONTEXT_MENU_ACTION_COPY,
    WEBKIT_CONTEXT_MENU_ACTION_PASTE,
    WEBKIT_CONTEXT_MENU_ACTION_DELETE,
    WEBKIT_CONTEXT_MENU_ACTION_SELECT_ALL,
};

struct MenuPane {
  WebKitWebView* view;
  PanePolicy& policy;
};

void ArrangeItem(WebKitContextMenu* menu, guint position, MenuPane* pane) {
  WebKitContextMenuItem* item = webkit_context_menu_get_item_at_position(menu, position);
  const auto action = webkit_context_menu_item_get_stock_action(item);
  if (std::find(kKept.begin(), kKept.end(), action) == kKept.end()) {
    webkit_context_menu_remove(menu, item);
  } else if (action == WEBKIT_CONTEXT_MENU_ACTION_RELOAD) {
    g_signal_connect_swapped(webkit_context_menu_item_get_gaction(item), "activate",
                             G_CALLBACK(+[](MenuPane* self) {
                               self->policy.Expect(webkit_web_view_get_uri(self->view));
                             }),
                             pane);
  }
}

gboolean Arrange(WebKitWebView* view, WebKitContextMenu* menu, GdkEvent*, WebKitHitTestResult*,
                 gpointer pane) {
  for (guint i = webkit_context_menu_get_n_items(menu); i-- > 0;) {
    ArrangeItem(menu, i, static_cast<MenuPane*>(pane));
  }
  const ObjectPtr<GSimpleAction> print(g_simple_action_new("print", nullptr));
  g_signal_connect_swapped(print.get(), "activate", G_CALLBACK(PrintPage), view);
  // WebKit has no entry of its own for this; the words are GTK's, in the user's language.
  WebKitContextMenuItem* item = webkit_context_menu_item_new_from_gaction(
      G_ACTION(print.get()), g_dgettext("gtk30", "Print"), nullptr);
  webkit_context_menu_append(menu, webkit_context_menu_item_new_separator());
  webkit_context_menu_append(menu, item);
  return FALSE;
}

void Answered(GtkDialog* widget, gint response, gpointer data) {
  auto* dialog = GTK_PRINT_UNIX_DIALOG(widget);
  if (response == GTK_RESPONSE_OK) {
    auto* operation = WEBKIT_PRINT_OPERATION(data);
    const ObjectPtr<GtkPrintSettings> settings(gtk_print_unix_dialog_get_settings(dialog));
    webkit_print_operation_set_print_settings(operation, settings.get());
    webkit_print_operation_set_page_setup(operation, gtk_print_unix_dialog_get_page_setup(dialog));
    webkit_print_operation_print(operation);
  }
  gtk_widget_destroy(GTK_WIDGET(widget));
}

}  // namespace

void AttachPaneMenu(WebKitWebView* view, PanePolicy& policy) {
  g_signal_connect_data(
      view, "context-menu", G_CALLBACK(Arrange), new MenuPane{view, policy},
      [](gpointer data, GClosure*) { delete static_cast<MenuPane*>(data); }, GConnectFlags{});
}

void PrintPage(WebKitWebView* view) {
  GtkWidget* window = gtk_widget_get_toplevel(GTK_WIDGET(view));
  GtkWidget* dialog = gtk_print_unix_dialog_new(nullptr, GTK_WINDOW(window));
  gtk_window_set_modal(GTK_WINDOW(dialog), TRUE);
  gtk_window_set_destroy_with_parent(GTK_WINDOW(dialog), TRUE);
  auto* unix_dialog = GTK_PRINT_UNIX_DIALOG(dialog);
  gtk_print_unix_dialog_set_embed_page_setup(unix_dialog, TRUE);
  gtk_print_unix_dialog_set_manual_capabilities(
      unix_dialog,
      static_cast<GtkPrintCapabilities>(GTK_PRINT_CAPABILITY_PAGE_SET |
                                        GTK_PRINT_CAPABILITY_COPIES | GTK_PRINT_CAPABILITY_COLLATE |
                                        GTK_PRINT_CAPABILITY_REVERSE | GTK_PRINT_CAPABILITY_SCALE));
  g_signal_connect_data(
      dialog, "response", G_CALLBACK(Answered), webkit_print_operation_new(view),
      [](gpointer operation, GClosure*) { g_object_unref(operation); }, GConnectFlags{});
  gtk_widget_show(dialog);
}

}  // namespace panelkit
