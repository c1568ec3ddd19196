// The frame of the reports: headings, count, sorted names, closing lines. Lines end in CR LF.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

/// Where the two gauge reports differ.
struct GaugeReport {
  bool list_all_gauges;
  std::string_view heading;
  std::string_view summary_heading;
};

inline constexpr GaugeReport kProbeReport{false, "PROBE FOR MISSING GAUGES REPORT",
                                          "PROBE FOR MISSING GAUGES SUMMARY REPORT"};
inline constexpr GaugeReport kShowReport{true, "ALL GAUGES REPORT",
                                         "MISSING GAUGES SUMMARY REPORT"};

/// The heading line above the aircraft.
std::string ReportHeading(const GaugeReport& report);

/// The heading and count lines below the aircraft.
std::string SummaryHeading(const GaugeReport& report, int missing_files);

/// The lines above the list of a Clean Gauges report. `FSPath` and `AppFolder` have no closing
/// backslash.
std::string RemovalHeading(int files, int gauges, const std::string& FSPath,
                           const std::string& AppFolder);

/// One name of the sorted list.
std::string NameLine(const std::string& name);

/// The lines that end every report.
std::string ClosingLines();

}  // namespace panelkit
