// Panel entries that count as installed although nothing of their name is.
#pragma once

#include <string>
#include <vector>

#include "gauges/gauge_report.h"
#include "gauges/gauge_table.h"
#include "platform/text.h"

namespace panelkit {

/// An entry that is present only because a longer key holds it.
struct DoubtfulEntry {
  std::string entry;
  std::string held_by;  ///< The first such key of the table.
  int aircraft = 0;     ///< How many aircraft name the entry.
};

/// The entries of a probe that no gauge file of exactly their name satisfies, and no entry of a
/// cabinet of exactly both names, case ignored; sorted by entry.
std::vector<DoubtfulEntry> DoubtfulEntries(const NamedEntries& named, const GaugeTable& installed,
                                           const Text& text);

}  // namespace panelkit
