// The table of installed gauges.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "analysis/substring_index.h"
#include "platform/text.h"

namespace panelkit {

/// The highest index of a table or list: indexes are 16-bit signed numbers.
inline constexpr int kHighestIndex = 32767;

/// One installed gauge: column 0 and column 1 of the table.
struct GaugeRow {
  std::string origin;  ///< "Gauge File", or the cabinet's name without its extension.
  std::string key;     ///< "gauge", or "cabinet!gauge".
};

/// Rows of installed gauges, the last one always free: the upper bound equals the number of used
/// rows.
class GaugeTable {
 public:
  GaugeTable() { Reset(); }

  /// Back to one free row.
  void Reset();

  /// Writes the free row and adds a new one behind it. False when the table cannot grow past index
  /// 32767: the row is written but stays the last one, which no search looks at.
  bool Add(const Text& text, std::string origin, std::string key);

  /// The index of the free last row, which is the number of used rows.
  int UpperBound() const { return static_cast<int>(rows_.size()) - 1; }

  const GaugeRow& Row(int row) const { return rows_.at(row); }

  /// Whether a row was refused since the last Reset.
  bool Overflowed() const { return overflowed_; }

  /// Whether a panel entry is installed: its file part equals a whole key, or the whole entry
  /// occurs anywhere in a key; case ignored. Entries are remembered, as panels name the same ones
  /// again and again.
  bool Exists(const Text& text, const std::string& entry) const;

 private:
  std::vector<GaugeRow> rows_;
  bool overflowed_ = false;
  std::unordered_set<std::string> lowered_keys_;
  SubstringIndex parts_of_keys_;
  mutable std::unordered_map<std::string, bool> answered_;
};

}  // namespace panelkit
