// Files that might be what panels require, and which of them the program would count as installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "gauges/gauge_table.h"
#include "platform/text.h"

namespace panelkit {

/// A gauge file or a cabinet, on disk or in an archive.
struct Candidate {
  std::string name;  ///< Its plain file name, which it would have in Gauges.
  std::string path;  ///< The file on disk: the candidate itself, or the archive that holds it.
  std::vector<std::string> inside;  ///< The entry names that lead to it, outermost archive first;
                                    ///< empty for a plain file.
  std::uint64_t size = 0;           ///< Bytes.
  std::int64_t modified = 0;        ///< Seconds since 1970, UTC.
  bool is_renamed = false;          ///< `name` is its OriginalName: it has another one now.
};

/// Candidates with the rows that each would add to the table of installed gauges. Whether one
/// satisfies a panel entry is answered by GaugeTable.
class CandidatePool {
 public:
  explicit CandidatePool(const Text& text) : text_(text) {}

  void AddGaugeFile(Candidate candidate);

  /// `rows` are those of the cabinet alone. One without rows can satisfy nothing and is left out.
  void AddCabinet(Candidate candidate, const GaugeTable& rows);

  /// Takes a candidate of this pool out of all answers but All.
  void Reject(const Candidate* candidate) { rejected_.insert(candidate); }

  /// Their addresses stay valid as long as the pool.
  const std::deque<Candidate>& All() const { return candidates_; }

  /// The candidates that would satisfy a panel entry, each once, in the order of adding.
  std::vector<const Candidate*> ThatSatisfy(std::string_view entry) const;

 private:
  // Most candidates have one row: tables of many answer faster than one each.
  struct Batch {
    GaugeTable table;
    std::vector<const Candidate*> owners;  // Of the table's rows.
  };
  void AddRow(std::string_view origin, std::string_view key);

  const Text& text_;
  std::deque<Candidate> candidates_;
  std::vector<Batch> batches_;
  std::set<const Candidate*> rejected_;
};

}  // namespace panelkit
