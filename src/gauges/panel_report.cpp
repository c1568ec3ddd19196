#include "gauges/panel_report.h"

#include <utility>

namespace panelkit {

PanelReport::PanelReport(std::string aircraft, const Text& text, const GaugeTable& installed,
                         NameList& collected, GaugeReport& report)
    : aircraft_(std::move(aircraft)),
      text_(text),
      installed_(installed),
      collected_(collected),
      report_(report) {}

void PanelReport::OnWindow(std::string_view title) {
  title_ = title;
  window_listed_ = false;
}

void PanelReport::OnEntry(std::string_view entry) {
  const bool requires_all = report_.kind == ReportKind::Clean;
  const bool is_missing = !requires_all && !installed_.Exists(text_, entry);
  if (is_missing || report_.kind == ReportKind::Show) {
    Window().gauges.push_back({report_.texts->Keep(entry), is_missing});
  }
  if (is_missing || requires_all) collected_.Add(FilePart(entry));
}

// The window to list a gauge in; panels and windows without any are not listed.
ReportedWindow& PanelReport::Window() {
  if (!std::exchange(panel_listed_, true)) report_.panels.push_back({aircraft_, {}});
  auto& windows = report_.panels.back().windows;
  if (!std::exchange(window_listed_, true)) windows.push_back({report_.texts->Keep(title_), {}});
  return windows.back();
}

}  // namespace panelkit
