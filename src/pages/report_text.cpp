#include "pages/report_text.h"

#include "pages/report_page.h"

namespace panelkit {
namespace {

std::string Removal(const GaugeReport& report) {
  return std::to_string(report.removed_files) + " FILES, CONTAINING " +
         std::to_string(report.names.size()) + " GAUGES WERE REMOVED FROM FOLDER:\n    " +
         report.folders.gauges + "\\\nAND ARCHIVED IN FOLDER:\n    " + report.folders.spare +
         "\\\nRemoved Files:\n";
}

void AppendPanel(const ReportedPanel& panel, const Text& text, std::string& lines) {
  lines.append("\nAIRCRAFT: ").append(text.Upper(panel.aircraft)).append("\n");
  for (const ReportedWindow& window : panel.windows) {
    lines.append("    ").append(window.title).append("\n");
    for (const ReportedGauge& gauge : window.gauges) {
      lines.append("        ").append(gauge.entry);
      lines += gauge.is_missing ? " *** MISSING ***\n" : "\n";
    }
  }
}

std::string Panels(const GaugeReport& report, const Text& text) {
  std::string lines = std::string(ReportTitle(report.kind)) + "\n";
  for (const ReportedPanel& panel : report.panels) AppendPanel(panel, text, lines);
  lines.append("\n").append(SummaryTitle(report.kind)).append("\nThere are ");
  lines.append(std::to_string(report.names.size())).append(" Required Files:\n");
  return lines;
}

}  // namespace

std::string ReportText(const GaugeReport& report, const Text& text,
                       const std::function<std::string(std::size_t position)>& below) {
  std::string lines = report.kind == ReportKind::Clean ? Removal(report) : Panels(report, text);
  for (std::size_t i = 0; i < report.names.size(); ++i) {
    lines.append("    ").append(report.names[i]).append("\n");
    if (below) lines += below(i);
  }
  return lines;
}

}  // namespace panelkit
