// Reports as plain text.
#pragma once

#include <string>

#include "gauges/gauge_report.h"
#include "platform/text.h"

namespace panelkit {

/// The whole report, indented by levels, without closing words; lines end in "\n". Texts stand as
/// in the files: a "<" in a gauge's name stays.
std::string ReportText(const GaugeReport& report, const Text& text);

}  // namespace panelkit
