// Reports as plain text.
#pragma once

#include <cstddef>
#include <functional>
#include <string>

#include "gauges/gauge_report.h"
#include "platform/text.h"

namespace panelkit {

/// The whole report, indented by levels, without closing words; lines end in "\n". Texts stand as
/// in the files: a "<" in a gauge's name stays. `below` gives lines to put below the name at a
/// position of report.names.
std::string ReportText(const GaugeReport& report, const Text& text,
                       const std::function<std::string(std::size_t position)>& below = {});

}  // namespace panelkit
