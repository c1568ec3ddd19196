// The Busy state of the main window.
#pragma once

#include "platform/form.h"

namespace panelkit {

/// While it lives, only File and Exit Program can be picked: a command that processes pending
/// events must not start another. Its destructor enables the menus, however the command ended.
class BusyState {
 public:
  explicit BusyState(Form& form) : form_(form) {
    for (const char* item : {"menMain", "menProbe", "menShow", "menRemove", "menCool", "menHelp"}) {
      form_.MenuNamed(item).SetEnabled(false);
    }
  }
  ~BusyState() {
    for (const char* item : {"menMain", "menHelp", "menCool", "menRemove", "menProbe", "menShow"}) {
      form_.MenuNamed(item).SetEnabled(true);
    }
  }
  BusyState(const BusyState&) = delete;
  BusyState& operator=(const BusyState&) = delete;

 private:
  Form& form_;
};

}  // namespace panelkit
