// Reports as pages: from what a command found to the lines below the page's prelude, which end in
// CR LF. Texts enter the page unescaped.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "gauges/gauge_report.h"
#include "platform/text.h"

namespace panelkit {

/// A heading line of the words as they are.
std::string RedHeading(std::string_view words);

/// The heading words above the aircraft of a probe or of all gauges.
std::string_view ReportTitle(ReportKind kind);

/// The heading words above the missing files of the same.
std::string_view SummaryTitle(ReportKind kind);

/// The heading line of a probe or of all gauges.
std::string ReportHeading(ReportKind kind);

/// The lines of aircraft, windows and gauges. Aircraft are shown in upper case.
std::string PanelLines(std::span<const ReportedPanel> panels, const Text& text);

/// The lines below the aircraft: the missing files and how many there are or, of Clean, the files
/// and gauges removed; then those that end every report.
std::string SummaryLines(const GaugeReport& report);

}  // namespace panelkit
