// Files that might be what panels require, and which of them the program would count as installed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "gauges/gauge_table.h"
#include "platform/text.h"
#include "search/required_files.h"

namespace panelkit {

/// A gauge file or a cabinet, on disk or in an archive.
struct Candidate {
  std::string name;  ///< Its plain file name, which it would have in Gauges.
  std::string path;  ///< The file on disk: the candidate itself, or the archive that holds it.
  std::vector<std::string> inside;  ///< The entry names that lead to it, outermost archive first;
                                    ///< empty for a plain file.
  std::uint64_t size = 0;           ///< Bytes.
  std::int64_t modified = 0;        ///< Seconds since 1970, UTC.
  bool is_renamed = false;          ///< It has another name than `name` now.
};

/// Candidates with the rows that each would add to the table of installed gauges. Whether one
/// satisfies a panel entry is answered by GaugeTable.
class CandidatePool {
 public:
  explicit CandidatePool(const Text& text) : text_(text) {}

  void AddGaugeFile(Candidate candidate);

  /// `rows` are those of the cabinet alone. One without rows can satisfy nothing and is left out.
  void AddCabinet(Candidate candidate, const GaugeTable& rows);

  /// Whether `candidate`, one of this pool, would satisfy an entry if it had the file's name.
  bool WouldSatisfyAs(const RequiredFile& required, const Candidate& candidate) const;

  /// Adds `candidate`, one of this pool, once more under the name of a required file; a cabinet
  /// with those of its gauges that are wanted. Null if that satisfies nothing, or no file can have
  /// the name.
  const Candidate* AddAs(const RequiredFile& required, const Candidate& candidate);

  /// The cabinets that hold exactly the gauges that the file's entries name, and whose name none
  /// of these entries has.
  std::vector<const Candidate*> WithExactlyTheGaugesOf(const RequiredFile& required) const;

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
  using Gauges = std::vector<std::string>;  // Lowered, in ascending order, each once.

  void AddRow(std::string_view origin, std::string_view key);
  Gauges GaugesOf(const RequiredFile& required) const;
  Gauges WantedGaugesIn(const Candidate& cabinet, const RequiredFile& required) const;
  bool IsCabinet(const Candidate& candidate) const {
    return gauges_of_cabinets_.contains(&candidate);
  }

  const Text& text_;
  std::deque<Candidate> candidates_;
  std::vector<Batch> batches_;
  std::map<Gauges, std::vector<const Candidate*>> cabinets_;
  std::map<const Candidate*, const Gauges*> gauges_of_cabinets_;
};

}  // namespace panelkit
