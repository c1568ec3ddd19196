// The Busy state of the main window.
#pragma once

#include "platform/form.h"

namespace panelkit {

/// While it lives, only File and Exit Program can be picked: a command that gives the event loop
/// its turns must not be entered twice. The menus come back at its end, however the command ends.
class BusyState {
 public:
  explicit BusyState(Form& form);
  ~BusyState();
  BusyState(const BusyState&) = delete;
  BusyState& operator=(const BusyState&) = delete;

 private:
  Form& form_;
};

}  // namespace panelkit
