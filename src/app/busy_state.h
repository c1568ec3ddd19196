// The Busy state of the main window.
#pragma once

#include "platform/form.h"

namespace panelkit {

/// While it lives, only File and Exit Program can be picked: a command that processes pending
/// events must not start another. Its destructor enables the menus, however the command ended.
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
