#include "platform/gtk/pane_menu.h"

#include <algorithm>
#include <array>

#include "platform/gtk/gtk_pointers.h"
#include "platform/gtk/print_page.h"

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

void DropOthers(WebKitContextMenu* menu) {
  for (guint i = webkit_context_menu_get_n_items(menu); i-- > 0;) {
    WebKitContextMenuItem* item = webkit_context_menu_get_item_at_position(menu, i);
    const auto action = webkit_context_menu_item_get_stock_action(item);
    if (std::find(kKept.begin(), kKept.end(), action) == kKept.end()) {
      webkit_context_menu_remove(menu, item);
    }
  }
}

gboolean Arrange(WebKitWebView* view, WebKitContextMenu* menu, GdkEvent*, WebKitHitTestResult*,
                 gpointer) {
  DropOthers(menu);
  const ObjectPtr<GSimpleAction> print(g_simple_action_new("print", nullptr));
  g_signal_connect(print.get(), "activate",
                   G_CALLBACK(+[](GSimpleAction*, GVariant*, gpointer shown) {
                     PrintPage(WEBKIT_WEB_VIEW(shown));
                   }),
                   view);
  webkit_context_menu_append(menu, webkit_context_menu_item_new_separator());
  webkit_context_menu_append(
      menu, webkit_context_menu_item_new_from_gaction(G_ACTION(print.get()), "Print", nullptr));
  return FALSE;
}

}  // namespace

void AttachPaneMenu(WebKitWebView* view) {
  g_signal_connect(view, "context-menu", G_CALLBACK(Arrange), nullptr);
}

}  // namespace panelkit
