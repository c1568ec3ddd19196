#include "platform/gtk/print_page.h"

#include <gtk/gtkunixprint.h>

#include "platform/gtk/gtk_pointers.h"

namespace panelkit {
namespace {

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

void PrintPage(WebKitWebView* view) {
  GtkWidget* window = gtk_widget_get_toplevel(GTK_WIDGET(view));
  GtkWidget* dialog = gtk_print_unix_dialog_new("Print", GTK_WINDOW(window));
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
