// Any bytes as an aircraft's panel and the panels that its alias lines lead to.
#include "analysis/panel_report.h"
#include "fuzz/fuzz.h"
#include "fuzz/prefix.h"
#include "platform/console/quiet_loop.h"

namespace panelkit::fuzz {
namespace {

// Form feeds part the input into the aircraft's own panel and those of the folders b and c.
void WritePanels(std::string_view input, const std::filesystem::path& aircraft) {
  for (const char* panel : {"a/Panel/panel.cfg", "b/panel.cfg", "c/panel.cfg"}) {
    const std::string_view piece = input.substr(0, input.find('\f'));
    input.remove_prefix(std::min(piece.size() + 1, input.size()));
    test::Put(aircraft / panel, piece);
  }
}

struct Outcome {
  std::string html;
  std::vector<std::string> collected;
};

Outcome ReadPanel(Files& files, const Text& text, PanelReportMode mode, bool installed) {
  QuietLoop loop;
  Outcome outcome;
  PanelReport report(
      mode, "A", outcome.html, [installed](const std::string&) { return installed; },
      [&](const std::string& entry) { outcome.collected.push_back(entry); });
  PanelReader(files, text, loop).Read("C:", "a", report);
  return outcome;
}

}  // namespace
}  // namespace panelkit::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace panelkit;
  using namespace panelkit::fuzz;
  static const CodePageText western(1252);
  static const CodePageText japanese(932);
  static Prefix prefix;
  WritePanels(Bytes(bytes, size), prefix.C() / "Aircraft");
  Files& files = prefix.Machine().Services().files;
  const Text& text = size % 2 == 0 ? western : japanese;
  const Outcome required = ReadPanel(files, text, PanelReportMode::RequiredOnly, true);
  const Outcome all = ReadPanel(files, text, PanelReportMode::All, false);
  Require(required.html.empty() && all.collected == required.collected);
  for (const std::string& entry : all.collected) {
    Require(entry.find_first_of("\r\n,") == std::string::npos);
    Require(all.html.find(" " + entry + " *** MISSING ***<br>\r\n") != std::string::npos);
  }
  const Outcome complete = ReadPanel(files, text, PanelReportMode::Missing, true);
  Require(complete.html.empty() && complete.collected.empty());
  return 0;
}
