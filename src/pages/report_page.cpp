#include "pages/report_page.h"

#include "pages/page_text.h"

namespace panelkit {
namespace {

std::string MissingFilesHeading(const GaugeReport& report) {
  return "<br><br>" + RedHeading(SummaryTitle(report.kind)) + "<b>There are " +
         std::to_string(report.names.size()) + " Required Files:</b><br><br>\r\n";
}

std::string RemovalHeading(const GaugeReport& report) {
  return "<font color=\"red\"><b>" + std::to_string(report.removed_files) + " FILES, CONTAINING " +
         std::to_string(report.names.size()) +
         " GAUGES WERE REMOVED FROM FOLDER: </font><BR> &nbsp;  &nbsp; " + report.folders.gauges +
         "\\<br>\r\n"
         "<font color=\"red\">AND ARCHIVED IN FOLDER:</font><br>  &nbsp;  &nbsp; " +
         report.folders.spare +
         "\\</b></font><hr size=1>\r\n"
         "<b>Removed Files:</b><br><br>\r\n";
}

void AppendWindow(const ReportedWindow& window, std::string& lines) {
  lines.append("&nbsp; &nbsp; ").append(window.title).append("<br>\r\n");
  for (const ReportedGauge& gauge : window.gauges) {
    lines.append("&nbsp; &nbsp; &nbsp; &nbsp; &nbsp; ").append(gauge.entry);
    lines += gauge.is_missing ? " *** MISSING ***<br>\r\n" : "<br>\r\n";
  }
}

}  // namespace

std::string RedHeading(std::string_view words) {
  return std::string("<font color=\"red\"><b>").append(words) + "</b></font><hr size=1>\r\n";
}

std::string_view ReportTitle(ReportKind kind) {
  return kind == ReportKind::Show ? "ALL GAUGES REPORT" : "PROBE FOR MISSING GAUGES REPORT";
}

std::string_view SummaryTitle(ReportKind kind) {
  return kind == ReportKind::Show ? "MISSING GAUGES SUMMARY REPORT"
                                  : "PROBE FOR MISSING GAUGES SUMMARY REPORT";
}

std::string ReportHeading(ReportKind kind) {
  return RedHeading(ReportTitle(kind));
}

std::string PanelLines(std::span<const ReportedPanel> panels, const Text& text) {
  std::string lines;
  for (const ReportedPanel& panel : panels) {
    lines.append("<b>AIRCRAFT: ").append(text.Upper(panel.aircraft)).append("</b><br>\r\n");
    for (const ReportedWindow& window : panel.windows) AppendWindow(window, lines);
  }
  return lines;
}

std::string SummaryLines(const GaugeReport& report) {
  std::string lines =
      report.kind == ReportKind::Clean ? RemovalHeading(report) : MissingFilesHeading(report);
  for (const std::string& name : report.names) {
    lines.append("&nbsp; &nbsp; &nbsp; &nbsp; ").append(name).append("<br>\r\n");
  }
  return lines + "<br>See if you can find your required files at " + SiteUrlLink() +
         "<br><br><br></body>\r\n"
         "</html>\r\n";
}

}  // namespace panelkit
