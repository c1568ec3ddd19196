// What the commands found, as JSON; docs/json.md describes the shape.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "console/find_result.h"
#include "gauges/gauge_report.h"
#include "platform/local_machine.h"
#include "search/hints.h"

namespace panelkit {

/// A path with the name that the system's own programs have for it.
nlohmann::ordered_json JsonOfPath(const LocalMachine& machine, const std::string& windows_path);

/// The panels of a probe or of all gauges, and the missing files; with what `hints` knows about
/// these, unless it is nullptr.
nlohmann::ordered_json JsonOf(const LocalMachine& machine, const GaugeReport& report,
                              const HintFinder* hints);

/// What find found, installed and still misses.
nlohmann::ordered_json JsonOf(LocalMachine& machine, const FindResult& result);

}  // namespace panelkit
