#include "platform/gtk/find_bar.h"

#include <string>

namespace panelkit {
namespace {

constexpr guint kMostMatches = 1000;
constexpr int kGap = 6;  // Pixels.

/// A button with one of the theme's symbols, which screen readers call `name`.
GtkWidget* SymbolButton(const char* symbol, const char* name, GCallback clicked, gpointer self) {
  GtkWidget* button = gtk_button_new_from_icon_name(symbol, GTK_ICON_SIZE_MENU);
  gtk_widget_set_tooltip_text(button, name);
  atk_object_set_name(gtk_widget_get_accessible(button), name);
  g_signal_connect_swapped(button, "clicked", clicked, self);
  return button;
}

}  // namespace

FindBar::FindBar(WebKitWebView* view)
    : view_(view),
      finder_(webkit_web_view_get_find_controller(view)),
      bar_(KeepObject(gtk_search_bar_new())),
      entry_(gtk_search_entry_new()),
      outcome_(gtk_label_new(nullptr)) {
  const auto next = +[](FindBar* self) { self->Next(); };
  const auto previous = +[](FindBar* self) { self->Previous(); };
  const auto close =
      +[](FindBar* self) { gtk_search_bar_set_search_mode(GTK_SEARCH_BAR(self->Widget()), FALSE); };
  GtkWidget* row = gtk_box_new(GTK_ORIENTATION_HORIZONTAL, kGap);
  gtk_entry_set_placeholder_text(GTK_ENTRY(entry_), "Find on this page");
  atk_object_set_name(gtk_widget_get_accessible(entry_), "Find on this page");
  for (GtkWidget* widget :
       {entry_, SymbolButton("go-up-symbolic", "Previous match", G_CALLBACK(previous), this),
        SymbolButton("go-down-symbolic", "Next match", G_CALLBACK(next), this),
        SymbolButton("window-close-symbolic", "Close", G_CALLBACK(close), this), outcome_}) {
    gtk_box_pack_start(GTK_BOX(row), widget, FALSE, FALSE, 0);
  }
  gtk_container_add(GTK_CONTAINER(bar_.get()), row);
  auto* bar = GTK_SEARCH_BAR(bar_.get());
  // A bar that slides in would lose the letters that are typed right after Ctrl+F.
  gtk_revealer_set_transition_duration(GTK_REVEALER(gtk_bin_get_child(GTK_BIN(bar))), 0);
  gtk_search_bar_connect_entry(bar, GTK_ENTRY(entry_));  // Escape closes the bar.
  g_signal_connect_swapped(bar, "notify::search-mode-enabled",
                           G_CALLBACK(+[](FindBar* self) { self->Closed(); }), this);
  g_signal_connect_swapped(entry_, "search-changed",
                           G_CALLBACK(+[](FindBar* self) { self->Find(); }), this);
  g_signal_connect(entry_, "key-press-event", G_CALLBACK(KeyPressed), this);
  g_signal_connect(finder_, "counted-matches",
                   G_CALLBACK(+[](WebKitFindController*, guint matches, FindBar* self) {
                     const std::string count = std::to_string(matches);
                     if (matches == 1) self->Tell("1 match", true);
                     if (matches > 1) self->Tell((count + " matches").c_str(), true);
                   }),
                   this);
  g_signal_connect_swapped(finder_, "failed-to-find-text",
                           G_CALLBACK(+[](FindBar* self) { self->Tell("Not found", false); }),
                           this);
}

FindBar::~FindBar() {
  g_signal_handlers_disconnect_by_data(finder_, this);
  g_signal_handlers_disconnect_by_data(entry_, this);
  g_signal_handlers_disconnect_by_data(bar_.get(), this);
}

void FindBar::Open() {
  gtk_search_bar_set_search_mode(GTK_SEARCH_BAR(bar_.get()), TRUE);
  gtk_widget_grab_focus(entry_);
  gtk_editable_select_region(GTK_EDITABLE(entry_), 0, -1);
  Find();
}

void FindBar::Next() {
  if (!gtk_search_bar_get_search_mode(GTK_SEARCH_BAR(bar_.get()))) return Open();
  webkit_find_controller_search_next(finder_);
}

void FindBar::Previous() {
  if (!gtk_search_bar_get_search_mode(GTK_SEARCH_BAR(bar_.get()))) return Open();
  webkit_find_controller_search_previous(finder_);
}

void FindBar::Find() {
  Tell("", true);
  const char* text = gtk_entry_get_text(GTK_ENTRY(entry_));
  if (*text == '\0') return webkit_find_controller_search_finish(finder_);
  const guint32 options = WEBKIT_FIND_OPTIONS_CASE_INSENSITIVE | WEBKIT_FIND_OPTIONS_WRAP_AROUND;
  webkit_find_controller_count_matches(finder_, text, options, kMostMatches);  // Takes marks away.
  webkit_find_controller_search(finder_, text, options, kMostMatches);
}

void FindBar::Tell(const char* outcome, bool found) {
  gtk_label_set_text(GTK_LABEL(outcome_), outcome);
  GtkStyleContext* style = gtk_widget_get_style_context(entry_);
  (found ? gtk_style_context_remove_class : gtk_style_context_add_class)(style,
                                                                         GTK_STYLE_CLASS_ERROR);
}

void FindBar::Closed() {
  if (gtk_search_bar_get_search_mode(GTK_SEARCH_BAR(bar_.get()))) return;
  webkit_find_controller_search_finish(finder_);
  gtk_widget_grab_focus(GTK_WIDGET(view_));
}

gboolean FindBar::KeyPressed(GtkWidget*, const GdkEventKey* key, gpointer self) {
  if (key->keyval != GDK_KEY_Return && key->keyval != GDK_KEY_KP_Enter) return FALSE;
  auto* bar = static_cast<FindBar*>(self);
  if ((key->state & GDK_SHIFT_MASK) != 0) {
    bar->Previous();
  } else {
    bar->Next();
  }
  return TRUE;
}

}  // namespace panelkit
