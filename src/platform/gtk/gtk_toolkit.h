// The window toolkit on Linux: GTK 3 with WebKitGTK.
#pragma once

#include <memory>

#include "platform/gtk/gtk_event_loop.h"
#include "platform/gtk/screen_scale.h"
#include "platform/toolkit.h"

namespace panelkit {

class GtkToolkit final : public Toolkit {
 public:
  /// Null if there is no display. `machine` must outlive it.
  static std::unique_ptr<GtkToolkit> Open(const LocalMachine& machine);

  std::unique_ptr<Form> CreateForm(const FormDescription& description) override;
  GtkEventLoop& Loop() override { return loop_; }
  ScreenSize Screen() const override;

 private:
  explicit GtkToolkit(const LocalMachine& machine);

  const LocalMachine& machine_;
  ScreenScale scale_;
  GtkEventLoop loop_;
};

}  // namespace panelkit
