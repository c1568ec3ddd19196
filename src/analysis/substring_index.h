// A growing collection of texts that answers quickly whether one of them contains a given text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace panelkit {

/// Finds substrings by trigrams: each run of three bytes knows the texts that hold it, and only the
/// texts of the rarest run of a question are looked through. Bytes are compared exactly; lower both
/// sides to ignore case.
class SubstringIndex {
 public:
  void Add(std::string text);
  void Clear();

  /// Whether `part` occurs in any text added so far. The empty part occurs in every text.
  bool Contains(std::string_view part) const;

 private:
  using Rows = std::vector<std::int32_t>;

  const Rows* RowsOfRarestTrigram(std::string_view part) const;

  std::vector<std::string> texts_;
  std::unordered_set<std::uint32_t> short_parts_;  // Runs of one and of two bytes.
  std::unordered_map<std::uint32_t, Rows> rows_by_trigram_;
};

}  // namespace panelkit
