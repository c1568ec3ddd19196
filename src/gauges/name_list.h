// A list of unique names.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

namespace panelkit {

/// Names in the order of adding, no two exactly equal (names that differ in case stay apart). The
/// last slot is always free: the upper bound equals the number of names.
class NameList {
 public:
  /// Back to one free slot.
  void Reset() { *this = NameList(); }

  /// Adds a name unless it is there already. A name that would need a slot past index 32767 is
  /// refused.
  void Add(const std::string& name);

  int UpperBound() const { return static_cast<int>(names_.size()); }

  /// The used slots.
  const std::vector<std::string>& Names() const { return names_; }

  /// Whether a name was refused since the last Reset.
  bool Overflowed() const { return overflowed_; }

 private:
  std::vector<std::string> names_;
  std::unordered_set<std::string> known_;
  bool overflowed_ = false;
};

}  // namespace panelkit
