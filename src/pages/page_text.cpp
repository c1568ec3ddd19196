#include "pages/page_text.h"

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

std::string BrakePageOpening(const std::string& FSPath, const std::string& AppFolder) {
  return std::string(PagePrelude) +
         "\r\n"
         "<br><center><img src=\"easy.gif\"></center><br>"
         "For those who <b><font color=#ff0000>ABSOLUTELY HATE THE ANNOYING, BIG, UGLY, RED BRAKE "
         "AND PARKING BRAKE</font></b> annunciations on FS2002, "
         "you can use this part of the program to remove (or reinstate) them. <p>"
         "First, we make a backup copy of your <b>FS2002.cfg</b> file located in your main "
         "<b>FS2002 folder</b> and place it in your <b>Backups</b> folder. <br><br>"
         " &nbsp; <b>" +
         FSPath + "\\FS2002.cfg &nbsp; --> &nbsp; " + AppFolder +
         "\\Backups\\FS2002.cfg</b><p>"
         "We then add the following variable to the FS2002.cfg file: "
         "<font color=#ff0000><b>show_brake_message = 0</b></font><br><br>"
         "You can then TOGGLE the UGLY, RED BRAKE AND PARKING BRAKE annunciators ON/OFF with this "
         "link. - Enjoy!<br><br>";
}

std::string BrakePageClosing() {
  return "<br>Visit " + SiteUrlLink() +
         "<br><br><br></body>\r\n"
         "</html>\r\n";
}

}  // namespace panelkit
