// The page that tells why gauges are missing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gauges/doubtful_entries.h"
#include "gauges/gauge_report.h"
#include "search/hints.h"

namespace panelkit {

/// What HintFinder::HintsFor tells of a file.
using HintsOf = std::function<std::vector<Hint>(const RequiredFile& required)>;

/// Each file that `report`, of a probe or of all gauges, names as missing, with the aircraft that
/// ask for it and its `hints`, with commands in `style`; then the entries that are
/// `doubtful`, and what the report does not read.
std::string HintsPage(const GaugeReport& report, const HintsOf& hints, const CommandStyle& style,
                      const std::vector<DoubtfulEntry>& doubtful);

}  // namespace panelkit
