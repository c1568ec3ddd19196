#include "gauges/trigram_index.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace panelkit {
namespace {

constexpr std::size_t kTrigram = 3;
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
  postings.reserve(bytes);
  for (std::uint32_t number = 0; number < texts.size(); ++number) {
    const std::string_view text = texts[number];
    for (std::size_t i = 0; i + kTrigram <= text.size(); ++i) {
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
  if (part.size() < kTrigram) {
    const auto end = texts_.begin() + static_cast<std::ptrdiff_t>(count);
    return std::any_of(texts_.begin(), end, holds_part);
  }
  const std::size_t list = ShortestList(part);
  for (std::uint32_t i = starts_[list]; i < starts_[list + 1] && postings_[i] < count; ++i) {
    if (holds_part(texts_[postings_[i]])) return true;
  }
  return false;
}

std::vector<std::size_t> TrigramIndex::Containing(std::string_view part) const {
  std::vector<std::size_t> found;
  const auto look_at = [&](std::size_t number) {
    if (texts_[number].find(part) != std::string_view::npos) found.push_back(number);
  };
  if (part.size() < kTrigram) {
    for (std::size_t number = 0; number < texts_.size(); ++number) look_at(number);
  } else {
    const std::size_t list = ShortestList(part);
    for (std::uint32_t i = starts_[list]; i < starts_[list + 1]; ++i) look_at(postings_[i]);
  }
  return found;
}

std::size_t TrigramIndex::ShortestList(std::string_view part) const {
  const auto length = [this](std::size_t list) { return starts_[list + 1] - starts_[list]; };
  std::size_t shortest = ListAt(part, 0);
  for (std::size_t i = 1; i + kTrigram <= part.size(); ++i) {
    const std::size_t list = ListAt(part, i);
    if (length(list) < length(shortest)) shortest = list;
  }
  return shortest;
}

}  // namespace panelkit
