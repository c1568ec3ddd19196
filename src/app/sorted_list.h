// The program's sorting device.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace panelkit {

/// The list box List1 as the commands use it: a list that keeps its items in ascending order of
/// their upper-cased text, ties in the order of adding. It is never shown.
class SortedList {
 public:
  explicit SortedList(const Text& text) : text_(text) {}

  void Clear();
  void AddItem(const std::string& item);
  int ListCount() const { return static_cast<int>(items_.size()); }

  /// Selects a position from 0 to ListCount() - 1.
  void SetListIndex(int position) { selected_ = position; }

  /// The selected item.
  const std::string& Text();

 private:
  struct Item {
    std::string upper;
    std::string text;
  };

  const panelkit::Text& text_;
  std::vector<Item> items_;
  bool sorted_ = true;
  int selected_ = -1;
};

}  // namespace panelkit
