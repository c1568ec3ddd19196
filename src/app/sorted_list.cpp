#include "app/sorted_list.h"

#include <algorithm>

namespace panelkit {

void SortedList::Clear() {
  items_.clear();
  sorted_ = true;
  selected_ = -1;
}

void SortedList::AddItem(const std::string& item) {
  items_.push_back({text_.Upper(item), item});
  sorted_ = false;
}

const std::string& SortedList::Text() {
  if (!sorted_) {
    std::stable_sort(items_.begin(), items_.end(),
                     [](const Item& a, const Item& b) { return a.upper < b.upper; });
    sorted_ = true;
  }
  return items_.at(selected_).text;
}

}  // namespace panelkit
