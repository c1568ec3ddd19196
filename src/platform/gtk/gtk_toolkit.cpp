#include "platform/gtk/gtk_toolkit.h"

#include <gtk/gtk.h>

#include <clocale>

#include "platform/gtk/gtk_form.h"
#include "platform/gtk/gtk_style.h"
#include "platform/gtk/window_frame.h"

/// Makes the pictures that the executable holds known; by glib-compile-resources. A library's
/// object file that registers itself would be left out of the executable.
extern "C" void panelkit_register_resource();

namespace panelkit {
namespace {

void SetIcon() {
  GList* icons = nullptr;
  for (const char* path : {"/panelkit/panelkit-16.png", "/panelkit/panelkit-48.png"}) {
    GdkPixbuf* icon = gdk_pixbuf_new_from_resource(path, nullptr);
    if (icon != nullptr) icons = g_list_append(icons, icon);
  }
  gtk_window_set_default_icon_list(icons);
  g_list_free_full(icons, g_object_unref);
}

}  // namespace

std::unique_ptr<GtkToolkit> GtkToolkit::Open(const LocalMachine& machine) {
  g_set_prgname("panelkit");
  g_set_application_name("Panelkit");
  if (!gtk_init_check(nullptr, nullptr)) return nullptr;
  // GTK has taken the user's locale for its own words; numbers keep the point.
  (void)std::setlocale(LC_NUMERIC, "C");
  return std::unique_ptr<GtkToolkit>(new GtkToolkit(machine));
}

GtkToolkit::GtkToolkit(const LocalMachine& machine)
    : machine_(machine), scale_(ScreenScale::OfDefaultScreen()) {
  panelkit_register_resource();
  InstallStyle(scale_);
  SetIcon();
}

std::unique_ptr<Form> GtkToolkit::CreateForm(const FormDescription& description) {
  return std::make_unique<GtkForm>(description, scale_, machine_);
}

ScreenSize GtkToolkit::Screen() const {
  const GdkRectangle screen = PrimaryMonitor();
  return {scale_.ToTwips(screen.width), scale_.ToTwips(screen.height)};
}

std::unique_ptr<Toolkit> OpenToolkit(const LocalMachine& machine) {
  return GtkToolkit::Open(machine);
}

}  // namespace panelkit
