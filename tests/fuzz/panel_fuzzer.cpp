// Any bytes as an aircraft's panel and the panels that its alias lines lead to.
#include "analysis/panel_report.h"
#include "fuzz/fuzz.h"
#include "platform/console/quiet_loop.h"

using namespace panelkit;
using fuzz::Require;

namespace {

struct Outcome {
  std::string html;
  std::vector<std::string> collected;
};

Outcome ReadPanel(fuzz::Prefix& prefix, const Text& text, PanelReportMode mode, bool installed) {
  QuietLoop loop;
  Outcome outcome;
  PanelReport report(
      mode, "A", outcome.html, [installed](const std::string&) { return installed; },
      [&](const std::string& entry) { outcome.collected.push_back(entry); });
  PanelReader(prefix.machine.Services().files, text, loop).Read("C:", "a", report);
  return outcome;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  static fuzz::Prefix prefix;
  static const CodePageText western(1252);
  static const CodePageText japanese(932);
  // Form feeds part the input into the aircraft's own panel and those of the folders b and c.
  std::string_view rest = fuzz::Bytes(bytes, size);
  for (const char* panel : {"a/Panel/panel.cfg", "b/panel.cfg", "c/panel.cfg"}) {
    const std::string_view piece = rest.substr(0, rest.find('\f'));
    rest.remove_prefix(std::min(piece.size() + 1, rest.size()));
    test::Put(prefix.c / "Aircraft" / panel, piece);
  }
  const Text& text = size % 2 == 0 ? western : japanese;
  const Outcome required = ReadPanel(prefix, text, PanelReportMode::RequiredOnly, true);
  const Outcome all = ReadPanel(prefix, text, PanelReportMode::All, false);
  Require(required.html.empty() && all.collected == required.collected);
  for (const std::string& entry : all.collected) {
    Require(entry.find_first_of("\r\n,") == std::string::npos);
    Require(all.html.find(" " + entry + " *** MISSING ***<br>\r\n") != std::string::npos);
  }
  const Outcome complete = ReadPanel(prefix, text, PanelReportMode::Missing, true);
  Require(complete.html.empty() && complete.collected.empty());
  return 0;
}
