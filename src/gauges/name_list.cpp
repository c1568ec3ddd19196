#include "gauges/name_list.h"

#include "gauges/gauge_table.h"

namespace panelkit {

void NameList::Add(const std::string& name) {
  if (known_.contains(name)) return;
  if (UpperBound() == kHighestIndex) {
    overflowed_ = true;
    return;
  }
  known_.insert(name);
  names_.push_back(name);
}

}  // namespace panelkit
