// What the commands found, as JSON; docs/json.md describes the shape.
#pragma once

#include <vector>

#include "console/command_line.h"
#include "console/json.h"
#include "gauges/gauge_report.h"
#include "search/find_result.h"
#include "search/hints.h"

namespace panelkit {

/// The hints about the missing files of a report.
struct Hints {
  std::vector<RequiredFile> required;
  std::vector<std::vector<Hint>> of_files;  ///< Beside each of `required`.
  CommandStyle style;
};

/// The panels of a probe or of all gauges, and the missing files; these with `hints`, unless it is
/// nullptr.
Json JsonOf(const LocalMachine& machine, const GaugeReport& report, const Hints* hints);

/// Files that panels name in a way which the reports do not read.
Json JsonOf(const std::vector<OtherwiseNamedFile>& files);

/// A line of a panel that names a gauge in such a way.
Json JsonOf(const Mention& mention);

/// What find found, installed and still misses.
Json JsonOf(const LocalMachine& machine, const CommandLine& line, const FindResult& result);

}  // namespace panelkit
