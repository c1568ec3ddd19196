// Any bytes as an aircraft's panel and the panels that its alias lines lead to.
#include <algorithm>

#include "fuzz/fuzz.h"
#include "gauges/name_list.h"
#include "gauges/panel_reader.h"
#include "platform/headless/headless_toolkit.h"

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
  const auto read = [&](ReportKind kind, NameList& collected) {
    GaugeReport report;
    report.kind = kind;
    const EntryQuestions ask{
        [](const std::string&) { return false; },
        [&collected](const std::string& entry) { collected.Add(FilePart(entry)); }};
    PanelReport panel("a", ask, report);
    MentionFinder mentions(prefix.machine.Services().files, text, "C:");
    PanelReader(prefix.machine.Services().files, text, loop, mentions).Read("C:", "a", panel);
    return report;
  };
  NameList required;
  Require(read(ReportKind::Clean, required).panels.empty());
  NameList missing;
  const GaugeReport all = read(ReportKind::Show, missing);
  Require(missing.Names() == required.Names());
  std::size_t next = 0;
  for (const ReportedPanel& panel : all.panels) {
    for (const ReportedWindow& window : panel.windows) {
      for (const ReportedGauge& gauge : window.gauges) {
        Require(gauge.is_missing && gauge.entry.find_first_of("\r\n,") == gauge.entry.npos);
        // A name is collected where it is met first.
        next += next < required.Names().size() && FilePart(gauge.entry) == required.Names()[next];
      }
    }
  }
  Require(next == required.Names().size());
}
