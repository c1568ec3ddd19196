// Which installed gauges no panel names.
#pragma once

#include <string>
#include <vector>

#include "gauges/gauge_table.h"
#include "platform/text.h"

namespace panelkit {

/// What Clean Gauges lists and what it moves: the gauges that are spare, that is, not needed.
struct SpareSelection {
  /// The keys of all rows that are not needed, in table order.
  std::vector<std::string> keys;

  /// The files to move, by name without extension, unique: a gauge file's key as it is, a cabinet's
  /// file part in lower case. A name that occurs in an earlier one is left out, so its file stays
  /// until the next run.
  std::vector<std::string> SpareFiles;
};

/// Selects the rows that `required`, the file parts of all panel entries, does not need. A row is
/// needed if its file part equals a required name, or its whole key occurs anywhere in one; case
/// ignored. This is the other way round than GaugeTable::Exists.
SpareSelection SelectSpare(const GaugeTable& installed, const std::vector<std::string>& required,
                           const Text& text);

}  // namespace panelkit
