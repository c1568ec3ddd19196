#include "platform/gtk/gtk_controls.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "platform/gtk/gtk_menu.h"
#include "platform/gtk/gtk_pointers.h"

namespace panelkit {
namespace {

constexpr double kSmallestText = 0.85;  // Of the form's font size; smaller is hard to read.
constexpr double kHintingRoom = 0.98;   // Hinting makes small letters wider.

gboolean TellWholeText(GtkWidget* widget, gint, gint, gboolean, GtkTooltip* tooltip, gpointer) {
  GtkLabel* label = GTK_LABEL(widget);
  if (!pango_layout_is_ellipsized(gtk_label_get_layout(label))) return FALSE;
  gtk_tooltip_set_text(tooltip, gtk_label_get_text(label));
  return TRUE;
}

}  // namespace

GtkLabelControl::~GtkLabelControl() {
  if (update_ != 0) g_source_remove(update_);
  g_signal_handlers_disconnect_by_data(widget_.get(), this);
}

GtkLabelControl::GtkLabelControl(std::string caption, int width)
    : caption_(std::move(caption)), width_(width), widget_(KeepObject(gtk_label_new(nullptr))) {
  GtkLabel* label = GTK_LABEL(widget_.get());
  gtk_label_set_xalign(label, 0);
  gtk_label_set_yalign(label, 0);
  gtk_label_set_single_line_mode(label, TRUE);
  gtk_label_set_ellipsize(label, PANGO_ELLIPSIZE_END);
  gtk_label_set_max_width_chars(label, 1);  // Long text must not widen the window.
  gtk_widget_set_has_tooltip(widget_.get(), TRUE);
  g_signal_connect(label, "query-tooltip", G_CALLBACK(TellWholeText), nullptr);
  g_signal_connect_swapped(label, "style-updated",
                           G_CALLBACK(+[](GtkLabelControl* self) { self->Fit(); }), this);
  Update();
}

void GtkLabelControl::SetCaption(const std::string& caption) {
  if (caption == caption_) return;
  caption_ = caption;
  if (update_ != 0) return;
  const auto update = +[](gpointer label) -> gboolean {
    static_cast<GtkLabelControl*>(label)->Update();
    return G_SOURCE_REMOVE;
  };
  update_ = g_idle_add_full(G_PRIORITY_DEFAULT, update, this, nullptr);
}

void GtkLabelControl::Update() {
  update_ = 0;
  const TextPtr shown(g_utf8_make_valid(caption_.data(), static_cast<gssize>(caption_.size())));
  gtk_label_set_text(GTK_LABEL(widget_.get()), shown.get());
  Fit();
}

void GtkLabelControl::Fit() {
  GtkLabel* label = GTK_LABEL(widget_.get());
  const ObjectPtr<PangoLayout> layout(
      gtk_widget_create_pango_layout(widget_.get(), gtk_label_get_text(label)));
  int needed = 0;
  pango_layout_get_pixel_size(layout.get(), &needed, nullptr);
  const double scale = needed > width_ ? static_cast<double>(width_) / needed : 1;
  const bool smaller = scale < 1 && scale >= kSmallestText;
  if (!smaller && gtk_label_get_attributes(label) == nullptr) return;
  const std::unique_ptr<PangoAttrList, void (*)(PangoAttrList*)> attributes(pango_attr_list_new(),
                                                                            pango_attr_list_unref);
  if (smaller) pango_attr_list_insert(attributes.get(), pango_attr_scale_new(scale * kHintingRoom));
  gtk_label_set_attributes(label, smaller ? attributes.get() : nullptr);
}

GtkProgressBarControl::GtkProgressBarControl(int width)
    : width_(width), widget_(gtk_progress_bar_new()) {}

void GtkProgressBarControl::SetMin(int min) {
  min_ = min;
  Show();
}

void GtkProgressBarControl::SetMax(int max) {
  max_ = max;
  Show();
}

void GtkProgressBarControl::SetValue(int value) {
  value_ = value;
  Show();
}

void GtkProgressBarControl::Show() {
  const std::int64_t range = std::int64_t{max_} - min_;
  double fraction = 0;
  if (range > 0) {
    const auto done = static_cast<double>(std::int64_t{value_} - min_);
    fraction = std::clamp(done / static_cast<double>(range), 0.0, 1.0);
  }
  const int filled = static_cast<int>(std::lround(fraction * width_));
  if (filled == filled_) return;
  filled_ = filled;
  gtk_progress_bar_set_fraction(GTK_PROGRESS_BAR(widget_), fraction);
}

GtkWidget* NewPicture(std::string_view name, const ScreenScale& scale) {
  const std::string path = "/panelkit/" + std::string(name) + ".bmp";
  const ObjectPtr<GdkPixbuf> picture(gdk_pixbuf_new_from_resource(path.c_str(), nullptr));
  if (picture == nullptr) return gtk_image_new();
  const auto scaled = [&](int pixels) {
    return static_cast<int>(std::lround(pixels * scale.Factor()));
  };
  const ObjectPtr<GdkPixbuf> shown(
      gdk_pixbuf_scale_simple(picture.get(), scaled(gdk_pixbuf_get_width(picture.get())),
                              scaled(gdk_pixbuf_get_height(picture.get())), GDK_INTERP_BILINEAR));
  return gtk_image_new_from_pixbuf(shown.get());
}

GtkWidget* NewButton(std::string_view caption) {
  return gtk_button_new_with_mnemonic(MnemonicOf(caption).c_str());
}

}  // namespace panelkit
