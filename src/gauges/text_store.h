// Texts kept side by side.
#pragma once

#include <algorithm>
#include <memory_resource>
#include <new>
#include <string_view>

namespace panelkit {

/// Keeps tens of thousands of short texts, and containers of views of them, in a few large blocks:
/// cheaper than a std::string and a node of its own each, above all at the end, where all go at
/// once.
class TextStore {
 public:
  /// A copy of `text`, valid as long as the store.
  std::string_view Keep(std::string_view text) {
    auto* const copy = static_cast<char*>(memory_.allocate(text.size(), 1));
    std::copy(text.begin(), text.end(), copy);
    return {copy, text.size()};
  }

  /// A new container of std::pmr that lives here with all that it holds. It ends with the store,
  /// without a destructor: what it holds must need none.
  template <typename Container>
  Container& Make() {
    void* const place = memory_.allocate(sizeof(Container), alignof(Container));
    return *new (place) Container(&memory_);
  }

 private:
  std::pmr::monotonic_buffer_resource memory_;
};

}  // namespace panelkit
