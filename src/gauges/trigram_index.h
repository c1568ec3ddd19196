// A collection of texts that answers quickly whether one of them contains a given text.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace panelkit {

/// A trigram index. A trigram is a run of three bytes; its posting list holds the texts in which it
/// occurs at an even position. Wherever a question occurs in a text, either its trigrams at even
/// positions or those at odd ones stand there, so only the texts of the shortest posting list of
/// each of these two are searched. Bytes are compared exactly; lower both sides to ignore case.
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
  // A posting list, or the part of one that is still to be searched.
  using List = std::span<const std::uint16_t>;

  std::array<List, 2> Candidates(std::string_view part) const;

  std::vector<std::string_view> texts_;

  // The posting lists one after the other, each in ascending order of text numbers. A list belongs
  // to a hash of trigrams; two trigrams of one hash share it.
  std::vector<std::uint16_t> postings_;
  std::vector<std::uint32_t> starts_;  // Where each list starts, and the end of the last one.
};

}  // namespace panelkit
