#include "app/frm_gauges.h"

#include <exception>
#include <new>
#include <utility>

#include "app/busy_state.h"
#include "app/form_descriptions.h"
#include "pages/page_text.h"
#include "pages/status_text.h"
#include "simulator/simulator_location.h"

namespace panelkit {

frmGauges::frmGauges(Toolkit& toolkit, const Machine& machine, std::string simulator)
    : machine_(machine),
      simulator_(std::move(simulator)),
      form_(toolkit.CreateForm(kGaugesWindow)),
      loop_(toolkit.Loop()),
      WebBrowser1(form_->BrowserNamed("WebBrowser1")),
      strip_(form_->StripOf("WebBrowser1")),
      lblFilePath(form_->LabelNamed("lblFilePath")),
      ProgressBar1(form_->ProgressBarNamed("ProgressBar1")),
      List1(machine.text),
      about_(toolkit),
      status_(form_->LabelNamed("lblStatus")),
      next_(*this, machine, *form_, loop_, status_) {
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
  form_->OnDrop([this](const std::vector<std::string>& places) { FindIn(places); });
  WebBrowser1.OnLinkNotOpened([this] { status_.Show(kLinkNotOpenedText); });
}

void frmGauges::OnClick(std::string_view item, Handler handler) {
  form_->OnClick(item, [this, handler] {
    if (at_work_) return;
    report_.reset();
    moved_ = {};
    RunAlone([this, handler] { (this->*handler)(); });
  });
}

// Keeps every other handler out, also while the menus are enabled: a pick of the brake item
// processes pending events without entering the Busy state.
void frmGauges::RunAlone(const std::function<void()>& work) {
  if (std::exchange(at_work_, true)) return;
  status_.Begin();
  strip_.Hide();
  try {
    work();
  } catch (const std::bad_alloc&) {
    GiveUp("there is not enough memory");
  } catch (const std::exception& failure) {
    GiveUp(failure.what());
  }
  at_work_ = false;
}

// The page that asks the user to wait must not stand for good.
void frmGauges::GiveUp(const std::string& reason) {
  report_.reset();
  status_.Complain(UnfinishedText(reason));
  try {
    LoadWelcome();
  } catch (const std::exception&) {
    // The pane keeps what it shows; why, the status line says already.
  }
}

void frmGauges::FindIn(const std::vector<std::string>& places) {
  if (!form_->MenuNamed("menProbe").Enabled()) return;
  RunAlone([&] {
    if (!report_ || report_->kind == ReportKind::Clean) {
      LoadWorking();
      const BusyState busy(*form_);
      Scan(false);
      TellOfReport();
    }
    next_.LookIn(places);
  });
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
  EnableCommands(false);
  ReportHtml = NoSimulatorPage(machine_.files.AppFolder());
  TellOf(ShowPage(PageFile()));
}

void frmGauges::EnableCommands(bool enabled) {
  for (const char* item : {"menProbe", "menShow", "menRemove", "menCool"}) {
    form_->MenuNamed(item).SetEnabled(enabled);
  }
}

// Loads the form anew, since nothing else leaves the state without a simulator.
void frmGauges::StartWith(const std::string& folder) {
  simulator_ = folder;
  EnableCommands(true);
  ProgressBar1.SetValue(0);
  Form_Load();
}

}  // namespace panelkit
