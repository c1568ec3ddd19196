#include "app/frm_gauges.h"

#include <exception>
#include <utility>

#include "app/gauges_window.h"
#include "pages/page_text.h"
#include "pages/site_addresses.h"
#include "simulator/simulator_location.h"

namespace panelkit {

frmGauges::frmGauges(Toolkit& toolkit, const Machine& machine, std::string simulator)
    : toolkit_(toolkit),
      machine_(machine),
      simulator_(std::move(simulator)),
      form_(toolkit.CreateForm(kGaugesWindow)),
      loop_(toolkit.Loop()),
      WebBrowser1(form_->BrowserNamed("WebBrowser1")),
      lblFilePath(form_->LabelNamed("lblFilePath")),
      lblStatus(form_->LabelNamed("lblStatus")),
      ProgressBar1(form_->ProgressBarNamed("ProgressBar1")),
      List1(machine.text),
      about_(toolkit) {
  WireEvents();
}

void frmGauges::WireEvents() {
  OnClick("menMain", &frmGauges::menMain_Click);
  OnClick("menProbe", &frmGauges::menProbe_Click);
  OnClick("menShow", &frmGauges::menShow_Click);
  OnClick("menRemove", &frmGauges::menRemove_Click);
  OnClick("menKeybd", &frmGauges::menKeybd_Click);
  OnClick("menBrake", &frmGauges::menBrake_Click);
  OnClick("menVirtual", &frmGauges::menVirtual_Click);
  OnClick("menVisit", &frmGauges::menVisit_Click);
  OnClick("menAboutFS", &frmGauges::menAboutFS_Click);
  form_->OnClick("menExit", [this] { menExit_Click(); });
  form_->OnClose([this] { menExit_Click(); });
}

void frmGauges::OnClick(std::string_view item, Handler handler) {
  form_->OnClick(item, [this, handler] { RunAlone(handler); });
}

// Keeps every other handler out, also where the menus are not disabled: a pick of the brake item
// gives the event loop its turns without entering the Busy state.
void frmGauges::RunAlone(Handler handler) {
  if (std::exchange(at_work_, true)) return;
  try {
    (this->*handler)();
  } catch (const std::exception&) {
    Complain("The command could not be finished.");
  }
  at_work_ = false;
}

void frmGauges::Show() {
  Form_Load();
  form_->Show();
}

void frmGauges::Form_Load() {
  LoadWelcome();
  SetupBrakes();
}

void frmGauges::menExit_Click() {
  loop_.End();
}

void frmGauges::menMain_Click() {
  BeginCommand();
  LoadWelcome();
  ProgressBar1.SetValue(0);
}

void frmGauges::menKeybd_Click() {
  WebBrowser1.Navigate(std::string(KeyboardPageUrl));
}

void frmGauges::menVirtual_Click() {
  WebBrowser1.Navigate(std::string(AirlineDirectoryUrl));
}

void frmGauges::menVisit_Click() {
  WebBrowser1.Navigate(std::string(SiteUrl));
}

void frmGauges::menAboutFS_Click() {
  about_.Show();
}

std::string frmGauges::GetFSPath() const {
  return simulator_.empty() ? FindSimulator(machine_.registry, machine_.text) : simulator_;
}

void frmGauges::ShowNoSimulator() {
  for (const char* item : {"menProbe", "menShow", "menRemove", "menCool"}) {
    form_->MenuNamed(item).SetEnabled(false);
  }
  ReportHtml = NoSimulatorPage(machine_.files.AppFolder());
  ShowPage(PageFile());
}

void frmGauges::BeginCommand() {
  complaint_.clear();
  report_.reset();
}

void frmGauges::Complain(std::string complaint) {
  complaint_ = std::move(complaint);
  lblStatus.SetCaption(complaint_);
}

}  // namespace panelkit
