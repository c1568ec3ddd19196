#include "search/near_name.h"

#include <algorithm>
#include <bitset>
#include <numeric>

namespace panelkit {
namespace {

constexpr std::size_t kMostMatches = 3;
constexpr std::size_t kLargestDistance = 2;

// The characters of a UTF-8 text, each as its bytes in one number.
std::u32string Characters(std::string_view text) {
  std::u32string characters;
  for (const char c : text) {
    const auto byte = static_cast<unsigned char>(c);
    const bool goes_on = (byte & 0xC0U) == 0x80U && !characters.empty();
    if (goes_on) {
      characters.back() = static_cast<char32_t>(characters.back() << 8U | byte);
    } else {
      characters.push_back(byte);
    }
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

std::uint64_t ParityBit(char32_t letter) {
  return std::uint64_t{1} << (letter * 0x9E3779B1U >> 26U);
}

// Whether two names differ in the numbers that count them up: "VOR1" and "VOR2".
bool AreCounted(const std::u32string& a, const std::u32string& b) {
  const auto without_digits = [](std::u32string name) {
    std::erase_if(name, [](char32_t c) { return c >= '0' && c <= '9'; });
    return name;
  };
  const std::u32string rest = without_digits(a);
  return rest.size() < a.size() && rest.size() < b.size() && rest == without_digits(b);
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

NearNames::Name NearNames::Prepared(std::string_view name) const {
  Name prepared{Characters(text_.Lower(name)), {}, 0};
  for (const char32_t letter : prepared.letters) prepared.parities ^= ParityBit(letter);
  prepared.without_separators = prepared.letters;
  std::erase_if(prepared.without_separators,
                [](char32_t c) { return c == ' ' || c == '_' || c == '-'; });
  return prepared;
}

void NearNames::Add(std::string_view name) {
  const Name& added = names_.emplace_back(Prepared(name));
  const std::size_t number = names_.size() - 1;
  const std::size_t length = added.letters.size();
  if (by_length_.size() <= length) by_length_.resize(length + 1);
  by_length_[length].push_back({added.parities, number});
  if (!added.without_separators.empty()) by_letters_.emplace(added.without_separators, number);
}

std::optional<Likeness> NearNames::LikenessOf(const Name& a, const Name& b) {
  if (AreCounted(a.without_separators, b.without_separators)) return std::nullopt;
  const auto distance = Distance(a.letters, b.letters, kLargestDistance);
  const std::size_t shorter = std::min(a.letters.size(), b.letters.size());
  if (!distance || *distance * 2 >= shorter) return std::nullopt;
  return *distance == 1 ? Likeness::OneLetter : Likeness::TwoLetters;
}

std::vector<NearNames::Match> NearNames::LikeThis(std::string_view name,
                                                  const Filter& counts) const {
  const Name wanted = Prepared(name);
  std::vector<Match> matches;
  const auto [begin, end] = by_letters_.equal_range(wanted.without_separators);
  for (auto same = begin; same != end; ++same) {
    if (names_[same->second].letters != wanted.letters) {
      matches.push_back({same->second, Likeness::Separators});
    }
  }
  const std::size_t length = wanted.letters.size();
  const std::size_t shortest = length - std::min(length, kLargestDistance);
  const std::size_t behind_longest = std::min(by_length_.size(), length + kLargestDistance + 1);
  for (std::size_t other = shortest; other < behind_longest; ++other) {
    for (const Slot& slot : by_length_[other]) {
      if (!MayBeNear(slot.parities, wanted.parities)) continue;
      const Name& near = names_[slot.number];
      if (near.without_separators == wanted.without_separators) continue;
      if (const auto likeness = LikenessOf(wanted, near))
        matches.push_back({slot.number, *likeness});
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
