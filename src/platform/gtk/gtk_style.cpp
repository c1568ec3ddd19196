#include "platform/gtk/gtk_style.h"

#include <locale>
#include <sstream>
#include <string>

#include "platform/gtk/gtk_pointers.h"

namespace panelkit {
namespace {

constexpr const char* kStyleClass = "panelkit";

/// Lengths are pixels, not points, so that text keeps its proportion to the fixed places of the
/// controls when the user changes the text size while the program runs.
std::string StyleSheet(const ScreenScale& scale) {
  std::ostringstream css;
  css.imbue(std::locale::classic());
  const double unit = scale.Factor();
  css << ".panelkit, .panelkit * {"
      << " font-family: Tahoma, 'Liberation Sans', Arial, 'Nimbus Sans', sans-serif;"
      << " font-size: " << scale.FontPixels(kFormFontPoints) << "px;"
      << " font-weight: normal; }\n"
      << ".panelkit menubar { padding: 0; margin: 0; }\n"
      << ".panelkit menubar > menuitem { padding: " << 3 * unit << "px " << 6 * unit << "px;"
      << " margin: 0; min-width: 0; min-height: 0; }\n"
      << ".panelkit menuitem { min-height: 0; }\n"
      << ".panelkit label { padding: 0; margin: 0; }\n"
      << ".panelkit button { padding: 0; margin: 0; min-width: 0; min-height: 0; }\n"
      << ".panelkit progressbar, .panelkit trough, .panelkit progress {"
      << " margin: 0; padding: 0; min-width: 0; min-height: 0; border-radius: 0; }\n"
      << ".panelkit trough { min-height: " << 15 * unit << "px; }\n"
      << ".panelkit progress { min-height: " << 15 * unit << "px; border: none; }\n";
  return css.str();
}

}  // namespace

void InstallStyle(const ScreenScale& scale) {
  const ObjectPtr<GtkCssProvider> provider(gtk_css_provider_new());
  gtk_css_provider_load_from_data(provider.get(), StyleSheet(scale).c_str(), -1, nullptr);
  gtk_style_context_add_provider_for_screen(gdk_screen_get_default(),
                                            GTK_STYLE_PROVIDER(provider.get()),
                                            GTK_STYLE_PROVIDER_PRIORITY_APPLICATION);
}

void ApplyStyle(GtkWidget* widget) {
  gtk_style_context_add_class(gtk_widget_get_style_context(widget), kStyleClass);
}

}  // namespace panelkit
