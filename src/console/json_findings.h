// What the commands found, as JSON; docs/json.md describes the shape.
#pragma once

#include "console/command_line.h"
#include "console/json.h"
#include "gauges/gauge_report.h"
#include "search/find_result.h"
#include "search/hints.h"

namespace panelkit {

/// The panels of a probe or of all gauges, and the missing files; with what `hints` knows about
/// these, unless it is nullptr.
Json JsonOf(const LocalMachine& machine, const GaugeReport& report, const HintFinder* hints);

/// Files that panels name in a way which the reports do not read.
Json JsonOf(const std::vector<OtherwiseNamedFile>& files);

/// A line of a panel that names a gauge in such a way.
Json JsonOf(const Mention& mention);

/// What find found, installed and still misses.
Json JsonOf(LocalMachine& machine, const CommandLine& line, const FindResult& result);

}  // namespace panelkit
