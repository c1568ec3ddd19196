#include "platform/gtk/gtk_menu.h"

#include <utility>

#include "platform/gtk/gtk_style.h"

namespace panelkit {
namespace {

/// Activates an item without entries when the button is released. GTK alone would do so only after
/// half a second, since on a bar it expects a menu to open.
gboolean ActAtOnce(GtkWidget* item, GdkEvent*, gpointer bar) {
  GtkMenuShell* shell = GTK_MENU_SHELL(bar);
  if (gtk_menu_item_get_submenu(GTK_MENU_ITEM(item)) != nullptr ||
      gtk_menu_shell_get_selected_item(shell) != item) {
    return FALSE;
  }
  gtk_menu_shell_activate_item(shell, item, TRUE);
  return TRUE;
}

}  // namespace

std::string MnemonicOf(std::string_view caption) {
  std::string mnemonic;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    const char c = caption[i];
    if (c == '_') {
      mnemonic += "__";
    } else if (c != '&') {
      mnemonic += c;
    } else if (i + 1 < caption.size() && caption[i + 1] == '&') {
      mnemonic += '&';
      ++i;
    } else {
      mnemonic += '_';
    }
  }
  return mnemonic;
}

GtkMenuEntry::GtkMenuEntry(std::string_view caption)
    : caption_(caption),
      widget_(GTK_MENU_ITEM(gtk_menu_item_new_with_mnemonic(MnemonicOf(caption).c_str()))) {}

void GtkMenuEntry::SetEnabled(bool enabled) {
  gtk_widget_set_sensitive(GTK_WIDGET(widget_), enabled);
}

bool GtkMenuEntry::Enabled() const {
  return gtk_widget_get_sensitive(GTK_WIDGET(widget_));
}

void GtkMenuEntry::SetCaption(const std::string& caption) {
  caption_ = caption;
  gtk_menu_item_set_label(widget_, MnemonicOf(caption).c_str());
}

GtkFormMenu::GtkFormMenu(std::span<const MenuDescription> menu, Clicked clicked)
    : clicked_(std::move(clicked)), bar_(gtk_menu_bar_new()) {
  for (const MenuDescription& description : menu) Add(description);
}

GtkMenuEntry& GtkFormMenu::Named(std::string_view name) {
  return EntryNamed(items_, name);
}

void GtkFormMenu::Open(std::string_view name) {
  GtkWidget* item = GTK_WIDGET(Named(name).Widget());
  if (gtk_widget_is_sensitive(item)) gtk_widget_mnemonic_activate(item, FALSE);
}

void GtkFormMenu::Add(const MenuDescription& description) {
  GtkMenuItem* item =
      items_.emplace(description.name, GtkMenuEntry(description.caption)).first->second.Widget();
  gtk_widget_set_name(GTK_WIDGET(item), std::string(description.name).c_str());
  g_signal_connect(item, "activate", G_CALLBACK(Activated), this);
  if (description.parent.empty()) {
    g_signal_connect(item, "button-release-event", G_CALLBACK(ActAtOnce), bar_);
  }
  gtk_menu_shell_append(EntriesOf(description.parent), GTK_WIDGET(item));
}

GtkMenuShell* GtkFormMenu::EntriesOf(std::string_view parent) {
  if (parent.empty()) return GTK_MENU_SHELL(bar_);
  GtkMenuItem* item = Named(parent).Widget();
  if (gtk_menu_item_get_submenu(item) == nullptr) {
    GtkWidget* entries = gtk_menu_new();
    ApplyStyle(entries);
    gtk_menu_item_set_submenu(item, entries);
  }
  return GTK_MENU_SHELL(gtk_menu_item_get_submenu(item));
}

void GtkFormMenu::Activated(GtkMenuItem* item, gpointer self) {
  if (gtk_menu_item_get_submenu(item) != nullptr) return;  // Its menu has opened.
  static_cast<GtkFormMenu*>(self)->clicked_(gtk_widget_get_name(GTK_WIDGET(item)));
}

}  // namespace panelkit
