#include "platform/gtk/gtk_strip.h"

#include <utility>

#include "platform/gtk/gtk_event_loop.h"
#include "platform/gtk/gtk_menu.h"

namespace panelkit {

GtkStrip::GtkStrip(GtkWidget* pane)
    : pane_(pane), bar_(KeepObject(gtk_info_bar_new())), sentence_(gtk_label_new(nullptr)) {
  constexpr int kMostLines = 2;
  auto* bar = GTK_INFO_BAR(bar_.get());
  auto* label = GTK_LABEL(sentence_);
  gtk_label_set_xalign(label, 0);
  gtk_label_set_line_wrap(label, TRUE);
  gtk_label_set_lines(label, kMostLines);
  gtk_label_set_ellipsize(label, PANGO_ELLIPSIZE_END);
  gtk_label_set_max_width_chars(label, 1);  // It takes what there is; none widens the window.
  gtk_box_pack_start(GTK_BOX(gtk_info_bar_get_content_area(bar)), sentence_, TRUE, TRUE, 0);
  gtk_orientable_set_orientation(GTK_ORIENTABLE(gtk_info_bar_get_action_area(bar)),
                                 GTK_ORIENTATION_HORIZONTAL);
  gtk_info_bar_set_show_close_button(bar, TRUE);
  gtk_widget_show_all(gtk_info_bar_get_content_area(bar));
  gtk_widget_set_no_show_all(bar_.get(), TRUE);  // The form shows all that it holds.
  g_signal_connect(bar, "response", G_CALLBACK(Responded), this);
}

GtkStrip::~GtkStrip() {
  g_signal_handlers_disconnect_by_data(bar_.get(), this);
}

// Hidden first: screen readers tell what comes to be shown.
void GtkStrip::Show(StripContent content) {
  Hide();
  content_ = std::move(content);
  auto* bar = GTK_INFO_BAR(bar_.get());
  gtk_container_foreach(
      GTK_CONTAINER(gtk_info_bar_get_action_area(bar)),
      [](GtkWidget* button, gpointer) { gtk_widget_destroy(button); }, nullptr);
  for (std::size_t i = 0; i < content_.buttons.size(); ++i) {
    gtk_info_bar_add_button(bar, MnemonicOf(content_.buttons[i].caption).c_str(),
                            static_cast<int>(i));
  }
  gtk_label_set_text(GTK_LABEL(sentence_), content_.sentence.c_str());
  gtk_widget_set_tooltip_text(sentence_, content_.sentence.c_str());
  atk_object_set_name(gtk_widget_get_accessible(bar_.get()), content_.sentence.c_str());
  gtk_widget_show(bar_.get());
}

void GtkStrip::Hide() {
  GtkWidget* window = gtk_widget_get_toplevel(bar_.get());
  GtkWidget* focus = GTK_IS_WINDOW(window) ? gtk_window_get_focus(GTK_WINDOW(window)) : nullptr;
  const bool has_keyboard = focus != nullptr && gtk_widget_is_ancestor(focus, bar_.get());
  gtk_widget_hide(bar_.get());
  if (has_keyboard) gtk_widget_grab_focus(pane_);
}

void GtkStrip::Responded(GtkInfoBar*, int response, GtkStrip* self) {
  // Escape answers with the latter.
  if (response == GTK_RESPONSE_CLOSE || response == GTK_RESPONSE_CANCEL) return self->Hide();
  const auto index = static_cast<std::size_t>(response);
  if (response < 0 || index >= self->content_.buttons.size()) return;
  PostToLoop(self->alive_, self->content_.buttons[index].on_click);
}

}  // namespace panelkit
