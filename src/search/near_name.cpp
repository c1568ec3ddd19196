#include "search/near_name.h"

#include <algorithm>
#include <bitset>
#include <numeric>

#include "text/utf8.h"

namespace panelkit {
namespace {

constexpr std::size_t kMostMatches = 3;
constexpr std::size_t kLargestDistance = 2;

std::u32string Characters(std::string_view text) {
  std::u32string characters;
  for (std::size_t position = 0; position < text.size();) {
    characters += TakeCodePoint(text, position);
  }
  return characters;
}

// By Wagner and Fischer, one row of their table after the other.
std::optional<std::size_t> Distance(std::u32string_view from, std::u32string_view to,
                                    std::size_t limit) {
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

// One edit changes the parity of at most two letters.
bool MayBeNear(std::uint64_t a, std::uint64_t b) {
  return std::bitset<64>(a ^ b).count() <= 2 * kLargestDistance;
}

std::uint64_t ParitiesOf(const std::u32string& letters) {
  std::uint64_t parities = 0;
  for (const char32_t letter : letters) {
    parities ^= std::uint64_t{1} << (static_cast<std::uint32_t>(letter * 0x9E3779B1U) >> 26U);
  }
  return parities;
}

std::string WithoutSeparators(std::string name) {
  std::erase_if(name, [](char c) { return c == ' ' || c == '_' || c == '-'; });
  return name;
}

std::string WithoutDigits(std::string name) {
  std::erase_if(name, [](char c) { return c >= '0' && c <= '9'; });
  return name;
}

// Whether two names differ in the numbers that count them up: "VOR1" and "VOR2".
bool AreCounted(const std::string& a, const std::string& b) {
  const std::string rest = WithoutDigits(a);
  return rest.size() < a.size() && rest.size() < b.size() && rest == WithoutDigits(b);
}

// Of two lowered names that differ in more than separators.
std::optional<Likeness> LikenessOf(const std::string& a, const std::string& b) {
  const std::string letters_of_a = WithoutSeparators(a);
  const std::string letters_of_b = WithoutSeparators(b);
  if (letters_of_a == letters_of_b || AreCounted(letters_of_a, letters_of_b)) return std::nullopt;
  const std::u32string from = Characters(a);
  const std::u32string to = Characters(b);
  const auto distance = Distance(from, to, kLargestDistance);
  if (!distance || *distance * 2 >= std::min(from.size(), to.size())) return std::nullopt;
  return *distance == 1 ? Likeness::OneLetter : Likeness::TwoLetters;
}

}  // namespace

std::optional<std::size_t> EditDistance(std::string_view a, std::string_view b, std::size_t limit) {
  return Distance(Characters(a), Characters(b), limit);
}

std::string DifferenceText(Likeness likeness) {
  switch (likeness) {
    case Likeness::Separators:
      return R"(in blanks, "_" and "-" alone)";
    case Likeness::OneLetter:
      return "in one letter";
    case Likeness::TwoLetters:
      return "in two letters";
  }
  return {};
}

void NearNames::Add(std::string_view name) {
  const std::string& added = names_.emplace_back(text_.Lower(name));
  const std::size_t number = names_.size() - 1;
  const std::u32string letters = Characters(added);
  if (by_length_.size() <= letters.size()) by_length_.resize(letters.size() + 1);
  by_length_[letters.size()].push_back({ParitiesOf(letters), number});
  by_letters_.emplace(std::hash<std::string>()(WithoutSeparators(added)), number);
}

std::vector<NearNames::Match> NearNames::LikeThis(std::string_view name,
                                                  const Filter& counts) const {
  const std::string wanted = text_.Lower(name);
  const std::string without_separators = WithoutSeparators(wanted);
  std::vector<Match> matches;
  const auto [begin, end] = by_letters_.equal_range(std::hash<std::string>()(without_separators));
  for (auto same = begin; same != end; ++same) {
    const std::string& other = names_[same->second];
    if (other == wanted || without_separators.empty()) continue;
    if (WithoutSeparators(other) != without_separators) continue;
    matches.push_back({same->second, Likeness::Separators});
  }
  const std::u32string letters = Characters(wanted);
  const std::uint64_t parities = ParitiesOf(letters);
  const std::size_t shortest = letters.size() - std::min(letters.size(), kLargestDistance);
  const std::size_t behind_longest =
      std::min(by_length_.size(), letters.size() + kLargestDistance + 1);
  for (std::size_t length = shortest; length < behind_longest; ++length) {
    for (const Slot& slot : by_length_[length]) {
      if (!MayBeNear(slot.parities, parities)) continue;
      const auto likeness = LikenessOf(wanted, names_[slot.number]);
      if (likeness) matches.push_back({slot.number, *likeness});
    }
  }
  std::erase_if(matches, [&](const Match& match) { return !counts(match.number); });
  std::sort(matches.begin(), matches.end(), [](const Match& a, const Match& b) {
    return std::pair(a.likeness, a.number) < std::pair(b.likeness, b.number);
  });
  if (!matches.empty() && matches.front().likeness != Likeness::TwoLetters) {
    std::erase_if(matches,
                  [](const Match& match) { return match.likeness == Likeness::TwoLetters; });
  }
  matches.resize(std::min(matches.size(), kMostMatches));
  return matches;
}

}  // namespace panelkit
