// File parts of panel entries, and the list that collects them.
#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace panelkit {

/// The text before the entry's first "!": the name of a gauge file or cabinet without its
/// extension. An entry without "!" is its own file part.
constexpr std::string_view FilePart(std::string_view entry) {
  return entry.substr(0, entry.find('!'));
}

/// Whether a panel entry, or the key of an installed gauge, has the form "file!gauge".
constexpr bool NamesFile(std::string_view entry) {
  return entry.find('!') != std::string_view::npos;
}

/// The highest index of a table or list: indexes are 16-bit signed numbers.
inline constexpr int kHighestIndex = 32767;

/// Names in the order of adding, no two exactly equal (names that differ in case stay apart). The
/// last slot is always free: the upper bound equals the number of names.
class NameList {
 public:
  /// Back to one free slot.
  void Reset() { *this = NameList(); }

  /// Adds a name unless it is there already. A name that would need a slot past kHighestIndex is
  /// refused.
  void Add(std::string_view name) {
    if (known_.contains(name)) return;
    if (UpperBound() == kHighestIndex) {
      overflowed_ = true;
      return;
    }
    known_.emplace(name);
    names_.emplace_back(name);
  }

  /// The index of the free last slot, which is the number of names.
  int UpperBound() const { return static_cast<int>(names_.size()); }

  /// The used slots.
  const std::vector<std::string>& Names() const { return names_; }

  /// Whether a name was refused since the last Reset.
  bool Overflowed() const { return overflowed_; }

 private:
  struct Hash : std::hash<std::string_view> {
    using is_transparent = void;
  };

  std::vector<std::string> names_;
  std::unordered_set<std::string, Hash, std::equal_to<>> known_;
  bool overflowed_ = false;
};

}  // namespace panelkit
