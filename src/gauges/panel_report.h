// Takes the gauges that one aircraft's panel names into a report.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "gauges/gauge_report.h"

namespace panelkit {

/// What a report asks of the program, once for each entry that panels name.
struct EntryQuestions {
  std::function<bool(const std::string& Gauge)> exists;
  std::function<void(std::string& Gauge)> add_to_missing;
};

/// What a report's kind makes of one aircraft's gauges: lists them in the report, looked up among
/// the installed ones, and has their file parts collected.
class PanelReport {
 public:
  /// `aircraft` is the folder's name as listed. The others must outlive the object.
  PanelReport(std::string aircraft, const EntryQuestions& ask, GaugeReport& report);

  /// A panel file was opened: the aircraft's own, or one that an alias leads to.
  void OnFile() { panel_listed_ = false; }

  /// The gauges that follow stand in the window of this title line. The view must stay valid until
  /// the next title or file.
  void OnWindow(std::string_view title);

  /// A gauge line of that window, by its panel entry.
  void OnEntry(std::string_view entry);

 private:
  NamedEntries::iterator Named(std::string_view entry);
  ReportedWindow& Window();

  std::string aircraft_;
  const EntryQuestions& ask_;
  GaugeReport& report_;
  std::string_view title_;
  bool panel_listed_ = false;   // The last of the report's panels is of this file.
  bool window_listed_ = false;  // The last of its windows is of this title.
};

}  // namespace panelkit
