#include "gauges/panel_report.h"

#include <utility>

namespace panelkit {

PanelReport::PanelReport(PanelReportMode mode, std::string aircraft, std::string& html,
                         std::function<bool(const std::string&)> exists,
                         std::function<void(std::string)> collect)
    : mode_(mode),
      aircraft_(std::move(aircraft)),
      html_(html),
      exists_(std::move(exists)),
      collect_(std::move(collect)) {}

void PanelReport::OnWindow(std::string_view title) {
  window_title_ = title;
  WindowHeaderWritten = false;
}

void PanelReport::OnEntry(std::string_view entry_text) {
  entry_ = entry_text;
  if (mode_ == PanelReportMode::RequiredOnly) {
    collect_(entry_);
    return;
  }
  const bool missing = !exists_(entry_);
  if (!missing && mode_ == PanelReportMode::Missing) return;
  WriteHeaders();
  html_.append("&nbsp; &nbsp; &nbsp; &nbsp; &nbsp; ").append(entry_);
  html_ += missing ? " *** MISSING ***<br>\r\n" : "<br>\r\n";
  if (missing) collect_(entry_);
}

void PanelReport::WriteHeaders() {
  if (!std::exchange(AircraftHeaderWritten, true)) {
    html_ += "<b>AIRCRAFT: " + aircraft_ + "</b><br>\r\n";
  }
  if (!std::exchange(WindowHeaderWritten, true)) {
    html_.append("&nbsp; &nbsp; ").append(window_title_).append("<br>\r\n");
  }
}

}  // namespace panelkit
