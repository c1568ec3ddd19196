#include "gauges/trigram_index.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace panelkit {
namespace {

constexpr std::size_t kTrigram = 3;
constexpr unsigned kChainBits = 15;
constexpr std::size_t kChains = std::size_t{1} << kChainBits;

// The chain of the trigram at `position`, by Fibonacci hashing.
std::size_t ChainAt(std::string_view text, std::size_t position) {
  const auto byte = [&](std::size_t i) {
    return std::uint32_t{static_cast<unsigned char>(text[position + i])};
  };
  constexpr std::uint32_t kGoldenRatio = 2654435769;  // As a part of 2^32.
  return (byte(0) << 16U | byte(1) << 8U | byte(2)) * kGoldenRatio >> (32 - kChainBits);
}

// Calls `visit` with each chain of each text, once, and the text's number.
template <typename Visit>
void ForEachChain(const std::vector<std::string_view>& texts, Visit visit) {
  std::vector<std::size_t> last_visitor(kChains, texts.size());
  for (std::size_t number = 0; number < texts.size(); ++number) {
    for (std::size_t i = 0; i + kTrigram <= texts[number].size(); ++i) {
      const std::size_t chain = ChainAt(texts[number], i);
      if (std::exchange(last_visitor[chain], number) != number) visit(chain, number);
    }
  }
}

}  // namespace

TrigramIndex::TrigramIndex(std::vector<std::string_view> texts)
    : texts_(std::move(texts)), starts_(kChains + 1) {
  ForEachChain(texts_, [this](std::size_t chain, std::size_t) { ++starts_[chain + 1]; });
  std::partial_sum(starts_.begin(), starts_.end(), starts_.begin());
  numbers_.resize(starts_.back());
  std::vector<std::uint32_t> ends = starts_;
  ForEachChain(texts_, [&](std::size_t chain, std::size_t number) {
    numbers_[ends[chain]++] = static_cast<std::uint16_t>(number);
  });
}

bool TrigramIndex::ContainsBefore(std::size_t count, std::string_view part) const {
  const auto holds_part = [part](std::string_view text) {
    return text.find(part) != std::string_view::npos;
  };
  if (part.size() < kTrigram) {
    const auto end = texts_.begin() + static_cast<std::ptrdiff_t>(count);
    return std::any_of(texts_.begin(), end, holds_part);
  }
  const std::size_t chain = ShortestChain(part);
  for (std::uint32_t i = starts_[chain]; i < starts_[chain + 1] && numbers_[i] < count; ++i) {
    if (holds_part(texts_[numbers_[i]])) return true;
  }
  return false;
}

std::size_t TrigramIndex::ShortestChain(std::string_view part) const {
  const auto length = [this](std::size_t chain) { return starts_[chain + 1] - starts_[chain]; };
  std::size_t shortest = ChainAt(part, 0);
  for (std::size_t i = 1; i + kTrigram <= part.size(); ++i) {
    const std::size_t chain = ChainAt(part, i);
    if (length(chain) < length(shortest)) shortest = chain;
  }
  return shortest;
}

}  // namespace panelkit
