// Case-insensitive sort; stands in for List1.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"

namespace panelkit {

/// The operations of the list box List1 that the commands use. Items stand in ascending order of
/// their upper-cased text; items that differ only in case stay apart, in the order of adding.
class SortedList {
 public:
  explicit SortedList(const Text& text) : text_(text) {}

  void Clear();
  void AddItem(const std::string& item);
  int ListCount() const { return static_cast<int>(items_.size()); }

  /// Selects a position from 0 to ListCount() - 1.
  void SetListIndex(int position) { selected_ = position; }

  /// The selected item; throws std::out_of_range if none is.
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
