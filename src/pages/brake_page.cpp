#include "pages/brake_page.h"

#include "pages/page_text.h"

namespace panelkit {

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
