// What a run does with the gauges that a panel names: report lines, and names collected.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "gauges/panel_reader.h"

namespace panelkit {

/// What a run lists and collects.
enum class PanelReportMode {
  Missing,       ///< Lists the gauges that are not installed, and collects them.
  All,           ///< Lists all gauges, marks those that are not installed, and collects these.
  RequiredOnly,  ///< Lists nothing and collects every gauge.
};

/// The lines of one aircraft. Headings are written only ahead of a gauge line that needs them;
/// texts enter the page unescaped, as they stand in the file.
class PanelReport : public PanelSink {
 public:
  /// `aircraft` is the heading's name, in the case in which it is to be shown. Lines go to the end
  /// of `html`; `exists` tells whether a panel entry is installed, `collect` receives entries.
  PanelReport(PanelReportMode mode, std::string aircraft, std::string& html,
              std::function<bool(const std::string&)> exists,
              std::function<void(std::string)> collect);

  void OnFile() override { AircraftHeaderWritten = false; }
  void OnWindow(std::string_view title) override;
  void OnEntry(std::string_view entry) override;

 private:
  void WriteHeaders();

  PanelReportMode mode_;
  std::string aircraft_;
  std::string& html_;
  std::function<bool(const std::string&)> exists_;
  std::function<void(std::string)> collect_;
  std::string_view window_title_;
  std::string entry_;  // Kept from call to call for its memory.
  bool AircraftHeaderWritten = false;
  bool WindowHeaderWritten = false;
};

}  // namespace panelkit
