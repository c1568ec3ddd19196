#include "platform/gtk/gtk_style.h"

#include <locale>
#include <memory>
#include <sstream>
#include <string>

#include "platform/gtk/gtk_pointers.h"

namespace panelkit {
namespace {

constexpr const char* kStyleClass = "panelkit";

/// A family name in a style sheet's notation.
std::string Quoted(std::string family) {
  std::erase_if(family, [](char c) { return c == '\'' || c == '\\' || c == '\n'; });
  return "'" + family + "'";
}

/// The font families of the forms, in order of preference: the one in the desktop's settings, then
/// those that the places were made for. "Sans" is the default of the settings and names no font.
std::string Families() {
  std::string designed_for = "Tahoma, 'Liberation Sans', Arial, 'Nimbus Sans', sans-serif";
  char* setting = nullptr;
  g_object_get(gtk_settings_get_default(), "gtk-font-name", &setting, nullptr);
  const TextPtr owner(setting);
  const std::unique_ptr<PangoFontDescription, void (*)(PangoFontDescription*)> font(
      pango_font_description_from_string(setting != nullptr ? setting : ""),
      pango_font_description_free);
  const char* family = pango_font_description_get_family(font.get());
  if (family == nullptr || g_ascii_strcasecmp(family, "Sans") == 0) return designed_for;
  return Quoted(family) + ", " + designed_for;
}

/// Lengths are pixels, not points, so that text keeps its proportion to the fixed places of the
/// controls when the user changes the text size while the program runs.
std::string StyleSheet(const ScreenScale& scale) {
  std::ostringstream css;
  css.imbue(std::locale::classic());
  const double unit = scale.Factor();
  css << ".panelkit, .panelkit * {"
      << " font-family: " << Families() << ";"
      << " font-size: " << scale.FontPixels(kFormFontPoints) << "px;"
      << " font-weight: normal; }\n"
      << ".panelkit menubar { padding: 0; margin: 0; }\n"
      << ".panelkit menubar > menuitem { padding: " << 3 * unit << "px " << 6 * unit << "px;"
      << " margin: 0; min-width: 0; min-height: 0; }\n"
      << ".panelkit menuitem { min-height: 0; }\n"
      << ".panelkit label { padding: 0; margin: 0; }\n"
      << ".panelkit button { padding: 0; margin: 0; min-width: 0; min-height: 0; }\n"
      << ".panelkit infobar button { padding: " << unit << "px " << 6 * unit << "px; }\n"
      << ".panelkit progressbar, .panelkit trough, .panelkit progress {"
      << " margin: 0; padding: 0; min-width: 0; min-height: 0; border-radius: 0; }\n"
      << ".panelkit trough { min-height: " << 15 * unit << "px; }\n"
      << ".panelkit progress { min-height: " << 15 * unit << "px; border: none; }\n";
  return css.str();
}

struct Style {
  ScreenScale scale;
  ObjectPtr<GtkCssProvider> provider;
};

void LoadStyle(const Style* style) {
  gtk_css_provider_load_from_data(style->provider.get(), StyleSheet(style->scale).c_str(), -1,
                                  nullptr);
}

}  // namespace

void InstallStyle(const ScreenScale& scale) {
  auto* style = new Style{scale, ObjectPtr<GtkCssProvider>(gtk_css_provider_new())};
  gtk_style_context_add_provider_for_screen(gdk_screen_get_default(),
                                            GTK_STYLE_PROVIDER(style->provider.get()),
                                            GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
  LoadStyle(style);
  g_signal_connect_data(
      gtk_settings_get_default(), "notify::gtk-font-name", G_CALLBACK(LoadStyle), style,
      [](gpointer data, GClosure*) { delete static_cast<Style*>(data); }, G_CONNECT_SWAPPED);
}

void ApplyStyle(GtkWidget* widget) {
  gtk_style_context_add_class(gtk_widget_get_style_context(widget), kStyleClass);
}

}  // namespace panelkit
