// A collection of texts that answers quickly whether one of them contains a given text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace panelkit {

/// Finds substrings by trigrams: the runs of three bytes are dealt out to chains, each of which
/// lists the texts that hold one of its runs, and only the texts of a question's shortest chain are
/// looked through. Bytes are compared exactly; lower both sides to ignore case.
class TrigramIndex {
 public:
  /// Takes at most 65,536 texts. What they view must outlive the index.
  explicit TrigramIndex(std::vector<std::string_view> texts);

  /// Whether `part` occurs in one of the texts. The empty part occurs in every text.
  bool Contains(std::string_view part) const { return ContainsBefore(texts_.size(), part); }

  /// Whether `part` occurs in one of the first `count` texts.
  bool ContainsBefore(std::size_t count, std::string_view part) const;

 private:
  std::size_t ShortestChain(std::string_view part) const;

  std::vector<std::string_view> texts_;
  std::vector<std::uint32_t>
      starts_;  // Where each chain starts in numbers_, and the last one's end.
  std::vector<std::uint16_t> numbers_;  // Numbers of texts, ascending in each chain.
};

}  // namespace panelkit
