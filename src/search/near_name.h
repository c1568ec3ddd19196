// How alike two names are.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/text.h"

namespace panelkit {

/// The least number of letters to insert, leave out or change that makes one text the other, case
/// counting; nullopt if it is above `limit`.
std::optional<std::size_t> EditDistance(std::string_view a, std::string_view b, std::size_t limit);

/// In what two different names are nearly the same.
enum class Likeness {
  None,
  Separators,  ///< They differ in blanks, "_" and "-" alone.
  OneLetter,   ///< Their edit distance is 1.
  TwoLetters,  ///< Their edit distance is 2.
};

/// A name made ready for comparing it with many others.
class ComparableName {
 public:
  ComparableName(const Text& text, std::string_view name);

  /// Case is ignored. Names that are equal then have no likeness, nor have short names of which
  /// half the letters differ.
  Likeness LikenessTo(const ComparableName& other) const;

 private:
  std::string lowered_;
  std::size_t letters_;  // Of lowered_.
  std::string without_separators_;
};

}  // namespace panelkit
