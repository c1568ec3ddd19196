// A form as a GTK window.
#pragma once

#include <gtk/gtk.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/form.h"
#include "platform/gtk/gtk_browser.h"
#include "platform/gtk/gtk_controls.h"
#include "platform/gtk/gtk_menu.h"
#include "platform/gtk/screen_scale.h"
#include "platform/local_machine.h"

namespace panelkit {

class GtkForm final : public Form {
 public:
  /// `machine` must outlive the form.
  GtkForm(const FormDescription& description, const ScreenScale& scale,
          const LocalMachine& machine);
  ~GtkForm() override;
  GtkForm(const GtkForm&) = delete;
  GtkForm& operator=(const GtkForm&) = delete;

  Label& LabelNamed(std::string_view name) override;
  MenuItem& MenuNamed(std::string_view name) override { return menu_.Named(name); }
  ProgressBar& ProgressBarNamed(std::string_view name) override;
  WebBrowser& BrowserNamed(std::string_view name) override;
  Strip& StripOf(std::string_view name) override;
  void OnClick(std::string_view name, std::function<void()> handler) override;
  void OnClose(std::function<void()> handler) override { close_ = std::move(handler); }
  std::vector<std::string> ChooseFolders(const std::string& title) override;
  void OnDrop(std::function<void(const std::vector<std::string>& paths)> handler) override;
  void Show() override;
  void Hide() override;
  Twips Width() const override;
  Twips Height() const override;
  void MoveTo(Twips left, Twips top) override;

 private:
  struct Position {
    int x;
    int y;
  };

  void PrepareWindow(const FormDescription& description);
  void AddControl(const ControlDescription& control, const LocalMachine& machine);
  GtkWidget* NewControl(const ControlDescription& control, const LocalMachine& machine);
  void Clicked(const std::string& name);
  void FitScreen();
  static gboolean CloseRequested(GtkWidget* window, GdkEvent* event, gpointer self);
  static gboolean KeyPressed(GtkWidget* window, const GdkEventKey* key, gpointer self);

  const LocalMachine& machine_;
  ScreenScale scale_;
  ByName<std::function<void()>> clicks_;
  std::function<void()> close_;
  std::string help_menu_;
  GtkFormMenu menu_;
  GtkWindow* window_;
  GtkFixed* client_area_;
  ByName<GtkLabelControl> labels_;
  ByName<GtkProgressBarControl> bars_;
  ByName<GtkBrowser> browsers_;
  std::optional<Position> place_;  ///< Where the window goes when it is shown again.

  /// Expires with the form, so that clicks which are still queued then call nothing.
  std::shared_ptr<const void> alive_ = std::make_shared<int>();
};

}  // namespace panelkit
