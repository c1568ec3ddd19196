// Takes the gauges that one aircraft's panel names into a report.
#pragma once

#include <string>
#include <string_view>

#include "gauges/gauge_report.h"
#include "gauges/gauge_table.h"
#include "gauges/name_list.h"
#include "platform/text.h"

namespace panelkit {

/// What a report's kind makes of one aircraft's gauges: lists them in the report, looked up in the
/// table of installed gauges, and collects file parts.
class PanelReport {
 public:
  /// `aircraft` is the folder's name as listed. All but the name must outlive the object.
  PanelReport(std::string aircraft, const Text& text, const GaugeTable& installed,
              NameList& collected, GaugeReport& report);

  /// A panel file was opened: the aircraft's own, or one that an alias leads to.
  void OnFile() { panel_listed_ = false; }

  /// The gauges that follow stand in the window of this title line. The view must stay valid until
  /// the next title or file.
  void OnWindow(std::string_view title);

  /// A gauge line of that window, by its panel entry.
  void OnEntry(std::string_view entry);

 private:
  ReportedWindow& Window();

  std::string aircraft_;
  const Text& text_;
  const GaugeTable& installed_;
  NameList& collected_;
  GaugeReport& report_;
  std::string_view title_;
  bool panel_listed_ = false;   // The last of the report's panels is of this file.
  bool window_listed_ = false;  // The last of its windows is of this title.
};

}  // namespace panelkit
