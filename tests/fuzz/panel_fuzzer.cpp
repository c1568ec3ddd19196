// Any bytes as an aircraft's panel and the panels that its alias lines lead to.
#include <algorithm>

#include "fuzz/fuzz.h"
#include "gauges/panel_report.h"
#include "platform/headless/quiet_loop.h"

void panelkit::fuzz::Try(std::string_view input) {
  static Prefix prefix;
  static const WineText western(1252);
  static const WineText japanese(932);
  const Text& text = input.size() % 2 == 0 ? western : japanese;
  // Form feeds part the input into the aircraft's own panel and those of the folders b and c.
  for (const char* panel : {"a/Panel/panel.cfg", "b/panel.cfg", "c/panel.cfg"}) {
    const std::string_view piece = input.substr(0, input.find('\f'));
    input.remove_prefix(std::min(piece.size() + 1, input.size()));
    test::Put(prefix.c / "Aircraft" / panel, piece);
  }
  QuietLoop loop;
  std::string html;
  const auto collected = [&](PanelReportMode mode) {
    std::vector<std::string> entries;
    PanelReport report(
        mode, "A", html, [](const std::string&) { return false; },
        [&](const std::string& entry) { entries.push_back(entry); });
    PanelReader(prefix.machine.Services().files, text, loop).Read("C:", "a", report);
    return entries;
  };
  const auto required = collected(PanelReportMode::RequiredOnly);
  Require(html.empty());
  Require(collected(PanelReportMode::All) == required);
  for (const std::string& entry : required) {
    Require(entry.find_first_of("\r\n,") == std::string::npos);
    Require(html.find(" " + entry + " *** MISSING ***<br>\r\n") != std::string::npos);
  }
}
