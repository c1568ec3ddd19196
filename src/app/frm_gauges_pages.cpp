// frmGauges: how pages reach the pane.
#include "app/frm_gauges.h"
#include "pages/page_text.h"
#include "pages/status_text.h"

namespace panelkit {

std::string frmGauges::OwnFile(const std::string& name) const {
  return machine_.files.AppFolder() + "\\" + name;
}

std::string frmGauges::PageFile() const {
  return OwnFile("GAUGES.HTM");
}

std::string frmGauges::BrakePageFile() const {
  return OwnFile("BRAKES.HTM");
}

void frmGauges::LoadWelcome() {
  ReportHtml = WelcomePage(machine_.files.AppFolder());
  TellOf(ShowPage(PageFile()));
}

void frmGauges::LoadWorking() {
  ReportHtml = WorkingPage();
  ShowPage(PageFile());
}

void frmGauges::ShowOwnPage(const std::string& name, const std::string& page) {
  ReportHtml = page;
  TellOf(ShowPage(OwnFile(name)));
}

PagePlace frmGauges::ShowPage(const std::string& PagePath) {
  const std::string bytes = machine_.text.ToAnsi(ReportHtml) + "\r\n";
  PagePlace place = WritePage(machine_.files, PagePath, bytes);
  if (place.path.empty()) {
    WebBrowser1.ShowFromMemory(bytes);
  } else {
    WebBrowser1.Navigate(place.path);
  }
  return place;
}

void frmGauges::TellOf(const PagePlace& place) {
  if (place.fault == FileFault::None) return;
  status_.Warn(place.path.empty() ? PageUnwrittenText(place.wanted, place.fault)
                                  : PageElsewhereText(place.path));
}

}  // namespace panelkit
