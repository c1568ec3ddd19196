// An arena for many short strings.
#pragma once

#include <algorithm>
#include <memory_resource>
#include <string_view>

namespace panelkit {

/// Keeps tens of thousands of short texts in a few large blocks: cheaper than an allocation each,
/// above all at the end, when the blocks are freed at once.
class TextStore {
 public:
  /// A copy of `text`, valid as long as the store.
  std::string_view Keep(std::string_view text) {
    auto* const copy = static_cast<char*>(memory_.allocate(text.size(), 1));
    std::copy(text.begin(), text.end(), copy);
    return {copy, text.size()};
  }

 private:
  std::pmr::monotonic_buffer_resource memory_;
};

}  // namespace panelkit
