// How alike two names are, and which of many are like a given one.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/text.h"

namespace panelkit {

/// The least number of letters to insert, leave out or change that makes one text the other, case
/// counting; nullopt if it is above `limit`.
std::optional<std::size_t> EditDistance(std::string_view a, std::string_view b, std::size_t limit);

/// In what two different names are nearly the same.
enum class Likeness {
  Separators,  ///< They differ in blanks, "_" and "-" alone.
  OneLetter,   ///< Their edit distance is 1.
  TwoLetters,  ///< Their edit distance is 2.
};

/// A likeness as the end of a sentence that begins "differs".
std::string DifferenceText(Likeness likeness);

/// Many names, with a quick search for those like a given one. Case is ignored.
class NearNames {
 public:
  /// A name by its number, in the order of adding from 0.
  struct Match {
    std::size_t number = 0;
    Likeness likeness = Likeness::Separators;
  };

  explicit NearNames(const Text& text) : text_(text) {}

  void Add(std::string_view name);

  /// Whether the name of this number counts.
  using Filter = std::function<bool(std::size_t number)>;

  /// The names most like `name`, the nearest first, at most three; those that differ in two letters
  /// only where none is nearer. Equal names are not alike, nor are short ones of which half the
  /// letters differ, nor those that differ in numbers alone, as "VOR1" and "VOR2".
  std::vector<Match> LikeThis(std::string_view name, const Filter& counts) const;

 private:
  struct Slot {
    std::uint64_t parities;  // Bit h: whether the letters of hash h are an odd number.
    std::size_t number;
  };

  const Text& text_;
  std::vector<std::string> names_;                                // Lowered.
  std::vector<std::vector<Slot>> by_length_;                      // In letters.
  std::unordered_multimap<std::size_t, std::size_t> by_letters_;  // Hashes without separators.
};

}  // namespace panelkit
