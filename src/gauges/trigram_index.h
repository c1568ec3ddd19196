// A collection of texts that answers quickly whether one of them contains a given text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace panelkit {

/// A trigram index. A trigram is a run of three bytes; its posting list holds the texts that it
/// occurs in. Only the texts of the shortest posting list among those of a question's trigrams are
/// searched. Bytes are compared exactly; lower both sides to ignore case.
class TrigramIndex {
 public:
  /// Takes at most 65,536 texts. What they view must outlive the index.
  explicit TrigramIndex(std::vector<std::string_view> texts);

  /// Whether `part` occurs in one of the texts. The empty part occurs in every text.
  bool Contains(std::string_view part) const { return ContainsBefore(texts_.size(), part); }

  /// Whether `part` occurs in one of the first `count` texts.
  bool ContainsBefore(std::size_t count, std::string_view part) const;

  /// The numbers of the texts in which `part` occurs, in ascending order.
  std::vector<std::size_t> Containing(std::string_view part) const;

 private:
  std::size_t ShortestList(std::string_view part) const;

  std::vector<std::string_view> texts_;

  // The posting lists one after the other, each in ascending order of text numbers. A list belongs
  // to a hash of trigrams; two trigrams of one hash share it.
  std::vector<std::uint16_t> postings_;
  std::vector<std::uint32_t> starts_;  // Where each list starts, and the end of the last one.
};

}  // namespace panelkit
