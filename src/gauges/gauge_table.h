// The table of installed gauges.
#pragma once

#include <tsl/robin_set.h>

#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "gauges/name_list.h"
#include "gauges/text_store.h"
#include "gauges/trigram_index.h"
#include "platform/text.h"

namespace panelkit {

/// Column 0 of the rows of gauge files.
inline constexpr const char* kGaugeFileOrigin = "Gauge File";

/// One installed gauge: the table's columns 0 and 1.
struct GaugeRow {
  std::string_view origin;  ///< "Gauge File", or the cabinet's name without its extension.
  std::string_view key;     ///< "gauge", or "cabinet!gauge".
};

/// Rows of installed gauges. The last row is always free, so the upper bound equals the number of
/// used rows. The first question after a change makes an index: one thread at a time. A table that
/// was moved from can only be destroyed or assigned to.
class GaugeTable {
 public:
  /// Back to one free row.
  void Reset() { *this = GaugeTable(); }

  /// Writes the free row and adds a new one behind it. False if the table would grow past
  /// kHighestIndex: the row is written then, but it stays the last one, which no search looks at.
  bool Add(const Text& text, std::string_view origin, std::string_view key);

  /// Adds the row of a cabinet's entry, by the cabinet's name without its extension and the file
  /// part of the entry's name. An entry that is no gauge has no row. False as Add gives it.
  bool AddEntry(const Text& text, std::string_view cabinet, std::string_view file);

  /// The index of the free last row, which is the number of used rows.
  int UpperBound() const { return static_cast<int>(contents_->rows.size()) - 1; }

  /// A row; its texts are valid until the next Reset.
  const GaugeRow& Row(int row) const { return contents_->rows.at(row); }

  /// Whether a row was refused since the last Reset.
  bool Overflowed() const { return overflowed_; }

  /// Whether a panel entry or, if it has the form "file!gauge", its file part equals a key; case
  /// ignored.
  bool HasOwnKey(const Text& text, std::string_view entry) const;

  /// Whether a panel entry is installed: it has a key of its own as above, or it occurs anywhere in
  /// a key; case ignored.
  bool Exists(const Text& text, std::string_view entry) const;

  /// The rows by which Exists is true of a panel entry, in ascending order.
  std::vector<int> RowsThatSatisfy(const Text& text, std::string_view entry) const;

 private:
  // Keeps the hashes, so that a look-up reads few texts.
  using TextSet = tsl::robin_set<std::string_view, std::hash<std::string_view>, std::equal_to<>,
                                 std::allocator<std::string_view>, true>;

  struct Contents {
    // Fuller than by default: no slower, and half as large.
    Contents() { whole_keys.max_load_factor(0.8F); }
    TextStore store;
    std::vector<GaugeRow> rows{1};
    std::vector<std::string_view> lowered_keys;  // The keys of the used rows, in their order.
    TextSet whole_keys;                          // The lowered keys, for equality.
    std::optional<TrigramIndex> parts_of_keys;   // And for substrings; made at the first question.
  };

  const TrigramIndex& PartsOfKeys() const;

  std::unique_ptr<Contents> contents_ = std::make_unique<Contents>();
  bool overflowed_ = false;
};

}  // namespace panelkit
