// A report page as plain text.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

/// The lines of a report page without its markup, ended by "\n". Known openings and endings of the
/// program's own lines are taken off, and nothing else: a "<" in a gauge's name stays. Lines that
/// belong to no report give nothing.
std::string ReportText(std::string_view page);

}  // namespace panelkit
