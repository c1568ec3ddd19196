#include "search/near_name.h"

#include <algorithm>
#include <cstdint>
#include <numeric>
#include <vector>

namespace panelkit {
namespace {

// The characters of a UTF-8 text, each as its bytes in one number.
std::vector<std::uint32_t> Characters(std::string_view text) {
  std::vector<std::uint32_t> characters;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool goes_on = (byte & 0xC0U) == 0x80U && !characters.empty();
    if (goes_on) {
      characters.back() = characters.back() << 8U | byte;
    } else {
      characters.push_back(byte);
    }
  }
  return characters;
}

// Whether the lengths alone put the distance above the limit: a character has at most 4 bytes.
bool LengthsDiffer(std::string_view a, std::string_view b, std::size_t limit) {
  const std::size_t difference = a.size() > b.size() ? a.size() - b.size() : b.size() - a.size();
  return difference > 4 * limit;
}

}  // namespace

// By Wagner and Fischer, one row of their table after the other.
std::optional<std::size_t> EditDistance(std::string_view a, std::string_view b, std::size_t limit) {
  if (LengthsDiffer(a, b, limit)) return std::nullopt;
  const auto from = Characters(a);
  const auto to = Characters(b);
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < from.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    std::size_t least = row[0];
    for (std::size_t j = 0; j < to.size(); ++j) {
      const std::size_t changed = diagonal + (from[i] == to[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({changed, row[j] + 1, row[j + 1] + 1});
      least = std::min(least, row[j + 1]);
    }
    if (least > limit) return std::nullopt;
  }
  return row.back() <= limit ? std::optional(row.back()) : std::nullopt;
}

namespace {

std::string WithoutDigits(std::string_view name) {
  std::string rest(name);
  std::erase_if(rest, [](char c) { return c >= '0' && c <= '9'; });
  return rest;
}

// Whether two names differ in the numbers that count them up: "VOR1" and "VOR2".
bool AreCounted(std::string_view a, std::string_view b) {
  const std::string rest = WithoutDigits(a);
  return rest.size() < a.size() && rest.size() != b.size() && rest == WithoutDigits(b);
}

}  // namespace

ComparableName::ComparableName(const Text& text, std::string_view name)
    : lowered_(text.Lower(name)),
      letters_(Characters(lowered_).size()),
      without_separators_(lowered_) {
  std::erase_if(without_separators_, [](char c) { return c == ' ' || c == '_' || c == '-'; });
}

Likeness ComparableName::LikenessTo(const ComparableName& other) const {
  if (lowered_ == other.lowered_) return Likeness::None;
  if (!without_separators_.empty() && without_separators_ == other.without_separators_) {
    return Likeness::Separators;
  }
  if (AreCounted(lowered_, other.lowered_)) return Likeness::None;
  const auto distance = EditDistance(lowered_, other.lowered_, 2);
  if (!distance || *distance * 2 >= std::min(letters_, other.letters_)) {
    return Likeness::None;
  }
  return *distance == 1 ? Likeness::OneLetter : Likeness::TwoLetters;
}

}  // namespace panelkit
