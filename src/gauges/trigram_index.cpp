#include "gauges/trigram_index.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <utility>

namespace panelkit {
namespace {

constexpr std::size_t kTrigram = 3;
constexpr std::size_t kShortestPart = 4;  // Shorter parts are searched linearly.
constexpr unsigned kHashBits = 15;
constexpr std::size_t kLists = std::size_t{1} << kHashBits;

// The number of the posting list of the trigram at `position`, by Fibonacci hashing.
std::uint16_t ListAt(std::string_view text, std::size_t position) {
  const auto byte = [&](std::size_t i) {
    return std::uint32_t{static_cast<unsigned char>(text[position + i])};
  };
  constexpr std::uint32_t kGoldenRatio = 2654435769;  // The ratio as a fraction of 2^32.
  const std::uint32_t trigram = byte(0) << 16U | byte(1) << 8U | byte(2);
  return static_cast<std::uint16_t>(trigram * kGoldenRatio >> (32 - kHashBits));
}

struct Posting {
  std::uint16_t list;
  std::uint16_t text;
};

// Every posting in ascending order of texts; a text stands once in a list.
std::vector<Posting> PostingsOf(const std::vector<std::string_view>& texts) {
  std::vector<Posting> postings;
  std::vector<std::uint32_t> next_text(kLists);  // By list: one more than the last text in it.
  std::size_t bytes = 0;
  for (const std::string_view text : texts) bytes += text.size();
  postings.reserve(bytes / 2);
  for (std::uint32_t number = 0; number < texts.size(); ++number) {
    const std::string_view text = texts[number];
    for (std::size_t i = 0; i + kTrigram <= text.size(); i += 2) {
      const std::uint16_t list = ListAt(text, i);
      if (std::exchange(next_text[list], number + 1) == number + 1) continue;
      postings.push_back({list, static_cast<std::uint16_t>(number)});
    }
  }
  return postings;
}

}  // namespace

TrigramIndex::TrigramIndex(std::vector<std::string_view> texts)
    : texts_(std::move(texts)), starts_(kLists + 1) {
  const std::vector<Posting> postings = PostingsOf(texts_);
  for (const Posting& posting : postings) ++starts_[posting.list + 1U];
  std::partial_sum(starts_.begin(), starts_.end(), starts_.begin());
  postings_.resize(postings.size());
  std::vector<std::uint32_t> ends = starts_;
  for (const Posting& posting : postings) postings_[ends[posting.list]++] = posting.text;
}

bool TrigramIndex::ContainsBefore(std::size_t count, std::string_view part) const {
  const auto holds_part = [part](std::string_view text) {
    return text.find(part) != std::string_view::npos;
  };
  if (part.size() < kShortestPart) {
    const auto end = texts_.begin() + static_cast<std::ptrdiff_t>(count);
    return std::any_of(texts_.begin(), end, holds_part);
  }
  const auto lists = Candidates(part);
  return std::any_of(lists.begin(), lists.end(), [&](List list) {
    const auto end = std::lower_bound(list.begin(), list.end(), count);
    return std::any_of(list.begin(), end,
                       [&](std::uint16_t number) { return holds_part(texts_[number]); });
  });
}

std::vector<std::size_t> TrigramIndex::Containing(std::string_view part) const {
  std::vector<std::size_t> candidates;
  if (part.size() < kShortestPart) {
    candidates.resize(texts_.size());
    std::iota(candidates.begin(), candidates.end(), std::size_t{0});
  } else {
    const auto [even, odd] = Candidates(part);
    std::set_union(even.begin(), even.end(), odd.begin(), odd.end(),
                   std::back_inserter(candidates));
  }
  std::erase_if(candidates, [&](std::size_t number) {
    return texts_[number].find(part) == std::string_view::npos;
  });
  return candidates;
}

// The shortest posting list of the part's trigrams at even positions, and of those at odd ones.
std::array<TrigramIndex::List, 2> TrigramIndex::Candidates(std::string_view part) const {
  const auto list_at = [&](std::size_t position) {
    const std::size_t list = ListAt(part, position);
    return List(postings_).subspan(starts_[list], starts_[list + 1] - starts_[list]);
  };
  std::array<List, 2> shortest = {list_at(0), list_at(1)};
  for (std::size_t i = 2; i + kTrigram <= part.size(); ++i) {
    const List list = list_at(i);
    if (list.size() < shortest.at(i % 2).size()) shortest.at(i % 2) = list;
  }
  return shortest;
}

}  // namespace panelkit
