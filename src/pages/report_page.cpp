#include "pages/report_page.h"

#include "pages/page_text.h"

namespace panelkit {
namespace {

std::string RedHeading(std::string_view words) {
  return std::string("<font color=\"red\"><b>").append(words) + "</b></font><hr size=1>\r\n";
}

}  // namespace

std::string ReportHeading(const GaugeReport& report) {
  return RedHeading(report.heading);
}

std::string SummaryHeading(const GaugeReport& report, int missing_files) {
  return "<br><br>" + RedHeading(report.summary_heading) + "<b>There are " +
         std::to_string(missing_files) + " Required Files:</b><br><br>\r\n";
}

std::string RemovalHeading(int files, int gauges, const std::string& FSPath,
                           const std::string& AppFolder) {
  return "<font color=\"red\"><b>" + std::to_string(files) + " FILES, CONTAINING " +
         std::to_string(gauges) + " GAUGES WERE REMOVED FROM FOLDER: </font><BR> &nbsp;  &nbsp; " +
         FSPath +
         "\\Gauges\\<br>\r\n"
         "<font color=\"red\">AND ARCHIVED IN FOLDER:</font><br>  &nbsp;  &nbsp; " +
         AppFolder +
         "\\SpareGauges\\</b></font><hr size=1>\r\n"
         "<b>Removed Files:</b><br><br>\r\n";
}

std::string NameLine(const std::string& name) {
  return "&nbsp; &nbsp; &nbsp; &nbsp; " + name + "<br>\r\n";
}

std::string ClosingLines() {
  return "<br>See if you can find your required files at " + SiteUrlLink() +
         "<br><br><br></body>\r\n"
         "</html>\r\n";
}

}  // namespace panelkit
