#include "platform/gtk/gtk_form.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "platform/gtk/folder_chooser.h"
#include "platform/gtk/gtk_drop.h"
#include "platform/gtk/gtk_event_loop.h"
#include "platform/gtk/gtk_style.h"
#include "platform/gtk/window_frame.h"

namespace panelkit {

GtkForm::GtkForm(const FormDescription& description, const ScreenScale& scale,
                 const LocalMachine& machine)
    : machine_(machine),
      scale_(scale),
      help_menu_(description.help_menu),
      menu_(description.menu, [this](const std::string& name) { Clicked(name); }),
      window_(GTK_WINDOW(gtk_window_new(GTK_WINDOW_TOPLEVEL))),
      client_area_(GTK_FIXED(gtk_fixed_new())) {
  PrepareWindow(description);
  // The order of adding is the order for screen readers, and for Tab between controls at one
  // height.
  std::vector<ControlDescription> controls(description.controls.begin(),
                                           description.controls.end());
  std::sort(controls.begin(), controls.end(),
            [](const auto& a, const auto& b) { return a.tab_index < b.tab_index; });
  for (const ControlDescription& control : controls) AddControl(control, machine);
  GtkWidget* content = gtk_bin_get_child(GTK_BIN(window_));
  gtk_widget_show_all(content);
  gtk_widget_set_visible(menu_.Widget(), !description.menu.empty());
  FitScreen();
}

GtkForm::~GtkForm() {
  browsers_.clear();
  gtk_widget_destroy(GTK_WIDGET(window_));
}

void GtkForm::PrepareWindow(const FormDescription& description) {
  ApplyStyle(GTK_WIDGET(window_));
  gtk_window_set_title(window_, std::string(description.title).c_str());
  gtk_window_set_resizable(window_, FALSE);
  gtk_window_set_skip_taskbar_hint(window_, TRUE);
  gtk_window_set_type_hint(window_, description.border == Border::FixedToolWindow
                                        ? GDK_WINDOW_TYPE_HINT_UTILITY
                                        : GDK_WINDOW_TYPE_HINT_DIALOG);
  g_signal_connect(window_, "delete-event", G_CALLBACK(CloseRequested), this);
  g_signal_connect(window_, "key-press-event", G_CALLBACK(KeyPressed), this);
  GtkWidget* content = gtk_box_new(GTK_ORIENTATION_VERTICAL, 0);
  gtk_container_add(GTK_CONTAINER(window_), content);
  gtk_box_pack_start(GTK_BOX(content), menu_.Widget(), FALSE, FALSE, 0);
  gtk_widget_set_size_request(GTK_WIDGET(client_area_), scale_.ToPixels(description.width),
                              scale_.ToPixels(description.height));
  gtk_box_pack_start(GTK_BOX(content), GTK_WIDGET(client_area_), FALSE, FALSE, 0);
  gtk_widget_realize(GTK_WIDGET(window_));
  GdkWindow* gdk_window = gtk_widget_get_window(GTK_WIDGET(window_));
  gdk_window_set_functions(gdk_window, static_cast<GdkWMFunction>(GDK_FUNC_MOVE | GDK_FUNC_CLOSE));
  gdk_window_set_decorations(gdk_window, static_cast<GdkWMDecoration>(
                                             GDK_DECOR_BORDER | GDK_DECOR_TITLE | GDK_DECOR_MENU));
}

// The places of controls are fixed, so a client area that is too large for the screen gets scroll
// bars.
void GtkForm::FitScreen() {
  constexpr int kFrame = 80;  // Pixels, more than any frame: most screens need no closer look.
  const GdkRectangle room = WorkArea();
  GtkRequisition size = {};
  gtk_widget_get_preferred_size(GTK_WIDGET(window_), &size, nullptr);
  if (size.width + kFrame <= room.width && size.height + kFrame <= room.height) return;
  const GdkRectangle framed = FramedSize(window_);
  const int too_wide = std::max(0, framed.width - room.width);
  const int too_high = std::max(0, framed.height - room.height);
  if (too_wide == 0 && too_high == 0) return;
  GtkRequisition area = {};
  gtk_widget_get_preferred_size(GTK_WIDGET(client_area_), &area, nullptr);
  GtkWidget* scrolled = gtk_scrolled_window_new(nullptr, nullptr);
  gtk_scrolled_window_set_overlay_scrolling(GTK_SCROLLED_WINDOW(scrolled), FALSE);
  gtk_widget_set_size_request(scrolled, area.width - too_wide, area.height - too_high);
  GtkWidget* content = gtk_bin_get_child(GTK_BIN(window_));
  const auto kept = KeepObject(client_area_);
  gtk_container_remove(GTK_CONTAINER(content), GTK_WIDGET(client_area_));
  gtk_container_add(GTK_CONTAINER(scrolled), GTK_WIDGET(client_area_));
  gtk_box_pack_start(GTK_BOX(content), scrolled, FALSE, FALSE, 0);
  gtk_widget_show_all(scrolled);
}

void GtkForm::AddControl(const ControlDescription& control, const LocalMachine& machine) {
  GtkWidget* widget = NewControl(control, machine);
  gtk_widget_set_size_request(widget, scale_.ToPixels(control.width),
                              scale_.ToPixels(control.height));
  if (!control.accessible_name.empty()) {
    atk_object_set_name(gtk_widget_get_accessible(widget),
                        std::string(control.accessible_name).c_str());
  }
  gtk_fixed_put(client_area_, widget, scale_.ToPixels(control.left), scale_.ToPixels(control.top));
}

GtkWidget* GtkForm::NewControl(const ControlDescription& control, const LocalMachine& machine) {
  const std::string name(control.name);
  switch (control.kind) {
    case ControlKind::WebBrowser:
      return browsers_.try_emplace(name, machine).first->second.Widget();
    case ControlKind::Label:
      return labels_.try_emplace(name, std::string(control.content), scale_.ToPixels(control.width))
          .first->second.Widget();
    case ControlKind::ProgressBar:
      return bars_.try_emplace(name, scale_.ToPixels(control.width)).first->second.Widget();
    case ControlKind::PictureBox:
      return NewPicture(control.content, scale_);
    case ControlKind::CommandButton:
      break;
  }
  GtkWidget* button = NewButton(control.content);
  gtk_widget_set_name(button, name.c_str());
  g_signal_connect(button, "clicked", G_CALLBACK(+[](GtkWidget* clicked, gpointer self) {
                     static_cast<GtkForm*>(self)->Clicked(gtk_widget_get_name(clicked));
                   }),
                   this);
  return button;
}

Label& GtkForm::LabelNamed(std::string_view name) {
  return EntryNamed(labels_, name);
}

ProgressBar& GtkForm::ProgressBarNamed(std::string_view name) {
  return EntryNamed(bars_, name);
}

WebBrowser& GtkForm::BrowserNamed(std::string_view name) {
  return EntryNamed(browsers_, name);
}

Strip& GtkForm::StripOf(std::string_view name) {
  return EntryNamed(browsers_, name).PaneStrip();
}

void GtkForm::OnClick(std::string_view name, std::function<void()> handler) {
  clicks_.insert_or_assign(std::string(name), std::move(handler));
}

void GtkForm::Clicked(const std::string& name) {
  const auto found = clicks_.find(name);
  if (found != clicks_.end()) PostToLoop(alive_, found->second);
}

gboolean GtkForm::CloseRequested(GtkWidget*, GdkEvent*, gpointer self) {
  auto* form = static_cast<GtkForm*>(self);
  form->Hide();
  if (form->close_) PostToLoop(form->alive_, form->close_);
  return TRUE;
}

gboolean GtkForm::KeyPressed(GtkWidget*, const GdkEventKey* key, gpointer self) {
  auto* form = static_cast<GtkForm*>(self);
  const bool opens_help = (key->state & gtk_accelerator_get_default_mod_mask()) == 0 &&
                          key->keyval == GDK_KEY_F1 && !form->help_menu_.empty();
  if (opens_help) form->menu_.Open(form->help_menu_);
  return opens_help ? TRUE : FALSE;
}

std::vector<std::string> GtkForm::ChooseFolders(const std::string& title) {
  std::vector<std::string> paths;
  for (const std::string& native : AskForFolders(window_, title, machine_.DownloadFolder())) {
    paths.push_back(machine_.WindowsPath(native));
  }
  return paths;
}

void GtkForm::OnDrop(std::function<void(const std::vector<std::string>& paths)> handler) {
  TakeDrops(GTK_WIDGET(window_), [this, handler = std::move(handler)](const auto& natives) {
    std::vector<std::string> paths;
    paths.reserve(natives.size());
    for (const std::string& native : natives) paths.push_back(machine_.WindowsPath(native));
    PostToLoop(alive_, [handler, paths] { handler(paths); });
  });
}

void GtkForm::Show() {
  if (!gtk_widget_get_visible(GTK_WIDGET(window_)) && place_) {
    gtk_window_move(window_, place_->x, place_->y);
  }
  Present(window_);
}

void GtkForm::Hide() {
  // X window managers choose a new place each time a window is shown.
  if (gtk_widget_get_mapped(GTK_WIDGET(window_)) && WindowsCanBePlaced()) {
    Position place = {};
    gtk_window_get_position(window_, &place.x, &place.y);
    place_ = place;
  }
  gtk_widget_hide(GTK_WIDGET(window_));
}

Twips GtkForm::Width() const {
  return scale_.ToTwips(FramedSize(window_).width);
}

Twips GtkForm::Height() const {
  return scale_.ToTwips(FramedSize(window_).height);
}

void GtkForm::MoveTo(Twips left, Twips top) {
  if (!WindowsCanBePlaced()) {
    gtk_window_set_position(window_, GTK_WIN_POS_CENTER);
    return;
  }
  const GdkRectangle screen = PrimaryMonitor();
  place_ = Position{screen.x + scale_.ToPixels(left), screen.y + scale_.ToPixels(top)};
  gtk_window_move(window_, place_->x, place_->y);
}

}  // namespace panelkit
