#include "pages/report_text.h"

#include <string>

#include "pages/report_page.h"

namespace panelkit {
namespace {

using OnLine = std::function<void(std::string_view line)>;

void TellRemoval(const GaugeReport& report, const OnLine& on_line) {
  on_line(std::to_string(report.removed_files) + " FILES, CONTAINING " +
          std::to_string(report.names.size()) + " GAUGES WERE REMOVED FROM FOLDER:");
  on_line("    " + report.folders.gauges + "\\");
  on_line("AND ARCHIVED IN FOLDER:");
  on_line("    " + report.folders.spare + "\\");
  on_line("Removed Files:");
}

void TellPanel(const ReportedPanel& panel, const Text& text, const OnLine& on_line) {
  std::string line;  // One for all, since there are many.
  on_line("");
  on_line("AIRCRAFT: " + text.Upper(panel.aircraft));
  for (const ReportedWindow& window : panel.windows) {
    on_line(line.assign("    ").append(window.title));
    for (const ReportedGauge& gauge : window.gauges) {
      line.assign("        ").append(gauge.entry);
      if (gauge.is_missing) line.append(" *** MISSING ***");
      on_line(line);
    }
  }
}

void TellPanels(const GaugeReport& report, const Text& text, const OnLine& on_line) {
  on_line(ReportTitle(report.kind));
  for (const ReportedPanel& panel : report.panels) TellPanel(panel, text, on_line);
  on_line("");
  on_line(SummaryTitle(report.kind));
  on_line("There are " + std::to_string(report.names.size()) + " Required Files:");
}

}  // namespace

void TellReport(const GaugeReport& report, const Text& text, const OnLine& on_line,
                const std::function<void(std::size_t position)>& below) {
  if (report.kind == ReportKind::Clean) {
    TellRemoval(report, on_line);
  } else {
    TellPanels(report, text, on_line);
  }
  for (std::size_t i = 0; i < report.names.size(); ++i) {
    on_line("    " + report.names[i]);
    below(i);
  }
}

void TellDoubtful(const std::vector<DoubtfulEntry>& entries, const OnLine& on_line) {
  if (entries.empty()) return;
  on_line("");
  on_line("Present only because a longer name holds theirs:");
  for (const DoubtfulEntry& entry : entries) {
    on_line("    " + entry.entry + " in " + entry.held_by +
            " (aircraft: " + std::to_string(entry.aircraft) + ")");
  }
}

void TellOtherwiseNamed(const std::vector<OtherwiseNamedFile>& files, const OnLine& on_line) {
  on_line("");
  on_line("FILES THAT PANELS NAME IN ANOTHER WAY: " + std::to_string(files.size()));
  for (const OtherwiseNamedFile& file : files) {
    on_line("    " + file.name + (file.is_there ? "" : " *** MISSING ***"));
    for (const Mention& mention : file.mentions) {
      on_line("        " + mention.entry + " for " + mention.aircraft + ": " + PlaceOf(mention));
    }
  }
}

std::string PlaceOf(const Mention& mention) {
  return mention.panel + ", line " + std::to_string(mention.line);
}

}  // namespace panelkit
