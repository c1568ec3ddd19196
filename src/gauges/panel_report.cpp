#include "gauges/panel_report.h"

#include <utility>

namespace panelkit {

PanelReport::PanelReport(std::string aircraft, const EntryQuestions& ask, GaugeReport& report)
    : aircraft_(std::move(aircraft)), ask_(ask), report_(report) {
  ++report_.aircraft;
}

void PanelReport::OnWindow(std::string_view title) {
  title_ = title;
  window_listed_ = false;
}

void PanelReport::OnEntry(std::string_view entry) {
  const auto named = Named(entry);
  NamedEntry& facts = named.value();
  if (std::exchange(facts.last_aircraft, report_.aircraft) != report_.aircraft) ++facts.aircraft;
  if (facts.is_missing || report_.kind == ReportKind::Show) {
    Window().gauges.push_back({named.key(), facts.is_missing});
  }
}

// Panels name the same entries again and again: each is looked up, and collected, once.
NamedEntries::iterator PanelReport::Named(std::string_view entry) {
  const auto known = report_.named.find(entry);
  if (known != report_.named.end()) return known;
  std::string Gauge(entry);
  const bool requires_all = report_.kind == ReportKind::Clean;
  const bool is_missing = !requires_all && !ask_.exists(Gauge);
  if (is_missing || requires_all) ask_.add_to_missing(Gauge);
  return report_.named.try_emplace(report_.texts->Keep(entry), NamedEntry{is_missing}).first;
}

// The window to list a gauge in; panels and windows without any are not listed.
ReportedWindow& PanelReport::Window() {
  if (!std::exchange(panel_listed_, true)) report_.panels.push_back({aircraft_, {}});
  auto& windows = report_.panels.back().windows;
  if (!std::exchange(window_listed_, true)) windows.push_back({report_.texts->Keep(title_), {}});
  return windows.back();
}

}  // namespace panelkit
