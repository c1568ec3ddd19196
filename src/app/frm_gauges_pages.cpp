// frmGauges: how pages reach the pane.
#include "app/frm_gauges.h"
#include "pages/page_text.h"

namespace panelkit {

std::string frmGauges::PageFile() const {
  return machine_.files.AppFolder() + "\\GAUGES.HTM";
}

std::string frmGauges::BrakePageFile() const {
  return machine_.files.AppFolder() + "\\BRAKES.HTM";
}

bool frmGauges::LoadWelcome() {
  ReportHtml = WelcomePage(machine_.files.AppFolder());
  return ShowPage(PageFile());
}

bool frmGauges::LoadWorking() {
  ReportHtml = WorkingPage();
  return ShowPage(PageFile());
}

bool frmGauges::ShowPage(const std::string& PagePath) {
  const std::string bytes = machine_.text.ToAnsi(ReportHtml) + "\r\n";
  if (machine_.files.Replace(PagePath, bytes, Durability::Buffered) != FileFault::None) {
    Complain(PagePath.substr(PagePath.rfind('\\') + 1) +
             " could not be written in the program's folder.");
    return false;
  }
  WebBrowser1.Navigate(PagePath);
  return true;
}

}  // namespace panelkit
