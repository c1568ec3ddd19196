#include "gauges/name_list.h"

namespace panelkit {

void NameList::Add(std::string_view name) {
  if (known_.contains(name)) return;
  if (UpperBound() == kHighestIndex) {
    overflowed_ = true;
    return;
  }
  known_.emplace(name);
  names_.emplace_back(name);
}

}  // namespace panelkit
