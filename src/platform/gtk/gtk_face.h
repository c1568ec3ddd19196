// The window face: GTK 3 with WebKitGTK.
#pragma once

#include <memory>

#include "platform/form.h"
#include "platform/gtk/gtk_event_loop.h"
#include "platform/gtk/screen_scale.h"
#include "platform/local_machine.h"

namespace panelkit {

class GtkFace final : public Face {
 public:
  /// Null where there is no display. `machine` must outlive the face.
  static std::unique_ptr<GtkFace> Open(const LocalMachine& machine);

  std::unique_ptr<Form> CreateForm(const FormDescription& description) override;
  EventLoop& Loop() override { return loop_; }
  ScreenSize Screen() const override;

 private:
  explicit GtkFace(const LocalMachine& machine);

  const LocalMachine& machine_;
  ScreenScale scale_;
  GtkEventLoop loop_;
};

}  // namespace panelkit
