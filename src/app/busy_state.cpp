#include "app/busy_state.h"

namespace panelkit {

BusyState::BusyState(Form& form) : form_(form) {
  for (const char* item : {"menMain", "menProbe", "menShow", "menRemove", "menCool", "menHelp"}) {
    form_.MenuNamed(item).SetEnabled(false);
  }
}

BusyState::~BusyState() {
  for (const char* item : {"menMain", "menHelp", "menCool", "menRemove", "menProbe", "menShow"}) {
    form_.MenuNamed(item).SetEnabled(true);
  }
}

}  // namespace panelkit
