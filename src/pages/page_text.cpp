#include "pages/page_text.h"

#include "pages/site_addresses.h"

namespace panelkit {
namespace {

constexpr std::string_view kWelcomeHeading =
    "<b><font size=3>It can be so frustrating when you can't locate a GAUGE!</font></b></center>"
    "<br><br>";
constexpr std::string_view kNoSimulatorHeading =
    "<b><font size=3 color='red'>Sorry- I Cannot Find FS2002 On Your Machine!</font></b></center>"
    "<br><br>";

constexpr std::string_view kClosingText =
    "<font size=2>If you are missing some gauges, then visit our site - we may have what you are "
    "looking for. "
    "</body>"
    "</html>";

std::string SiteLink() {
  return std::string("<center><b><font size=3><a href='").append(SiteUrl) +
         std::string("' target='_new'>").append(SiteHost) + "</a></font></b></center><br>";
}

std::string MainPage(std::string_view heading, const std::string& AppFolder) {
  std::string page(PagePrelude);
  page += "<br><center><img src=\"confused.gif\"><br><br>";
  page += heading;
  page +=
      "\r\n"
      "<font size=2>We hope you find this program helpful. You can identify Flight Simulator "
      "gauges you are missing by clicking on "
      "<b>\"Probe For Missing Gauges\"</b> on the Menu bar.  If you would like a report on all of "
      "the gauges "
      "used in your particular setup, then "
      "click <b>\"Show All Gauges\"</b>.   To remove all unnecessary gauges from your Gauges "
      "folder, click "
      "<b>\"Clean Gauges\"</b> - the removed gauges will be backed up in <b>";
  page += AppFolder;
  page +=
      "\\SpareGauges</b>. "
      "You can print out a report by right-clicking on the report itself and selecting "
      "<b>\"Print\"</b>. </font> <br><br>";
  page += SiteLink();
  page += "\r\n";
  page += kClosingText;
  return page;
}

}  // namespace

std::string SiteUrlLink() {
  return std::string("<a href='").append(SiteUrl) +
         std::string("' target='_new'>").append(SiteUrl) + "</a>";
}

std::string WelcomePage(const std::string& AppFolder) {
  return MainPage(kWelcomeHeading, AppFolder);
}

std::string NoSimulatorPage(const std::string& AppFolder) {
  return MainPage(kNoSimulatorHeading, AppFolder);
}

std::string WorkingPage() {
  std::string page(PagePrelude);
  page +=
      "<br><br><br><br><br><br><br><br><br><center><img src=\"madhack.gif\"><br><br><br>"
      "<b><font size=3>I'm Working On It<br>Please Wait!</font></b></center>"
      "<br><br><br><br><br><br><br>\r\n";
  page += SiteLink();
  page += "\r\n";
  page += kClosingText;
  return page;
}

}  // namespace panelkit
