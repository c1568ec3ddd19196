// Window toolkit: makes forms and runs their events. Each system's back end implements OpenToolkit.
#pragma once

#include <memory>

#include "platform/event_loop.h"
#include "platform/form.h"
#include "platform/local_machine.h"

namespace panelkit {

struct ScreenSize {
  Twips width;
  Twips height;
};

/// One way of showing forms: the system's windows, or none at all (headless).
class Toolkit {
 public:
  virtual ~Toolkit() = default;
  virtual std::unique_ptr<Form> CreateForm(const FormDescription& description) = 0;
  virtual EventLoop& Loop() = 0;
  virtual ScreenSize Screen() const = 0;
};

/// Opens the window toolkit of this system. Null if there is no display. `machine` must outlive
/// it.
std::unique_ptr<Toolkit> OpenToolkit(const LocalMachine& machine);

/// Delivers the user's actions to the forms of a toolkit of OpenToolkit, until EventLoop::End.
[[noreturn]] void RunEventLoop(Toolkit& toolkit);

}  // namespace panelkit
