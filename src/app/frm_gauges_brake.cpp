// frmGauges: the parking brake annunciator.
#include <utility>

#include "app/frm_gauges.h"
#include "pages/page_text.h"
#include "pages/status_text.h"

namespace panelkit {
namespace {

constexpr const char* kShownCaption = "&Turn Parking Brake Annunciator OFF";
constexpr const char* kHiddenCaption = "&Turn Parking Brake Annunciator ON";

}  // namespace

void frmGauges::SetupBrakes() {
  const std::string FSPath = GetFSPath();
  if (FSPath.empty()) {
    ShowNoSimulator();
    return;
  }
  brakes_ = FindOrAddBrakeSetting(machine_.files, FSPath, machine_.files.AppFolder(),
                                  [this] { loop_.ProcessPending(); });
  SetBrakeCaption(brakes_.shown.value_or(true));
  TellOfBrakes();
}

void frmGauges::SetBrakes(int b) {
  brakes_ = SetBrakeSetting(machine_.files, GetFSPath(), b, [this] { loop_.ProcessPending(); });
}

void frmGauges::menBrake_Click() {
  ReportHtml = BrakePageOpening(GetFSPath(), machine_.files.AppFolder());
  const bool shown = BrakeMessagesAreShown();
  SetBrakeCaption(!shown);
  SetBrakes(shown ? 0 : 1);
  ReportHtml += BrakePageClosing();
  TellOf(ShowPage(BrakePageFile()));
  TellOfBrakes();
  if (brakes_.fault == FileFault::None && !brakes_.shown) status_.Complain(kNoPlaceForSettingText);
  // What an earlier pick could not do, this one did.
  const bool told_before = std::exchange(told_of_brakes_, !status_.Sentences().empty());
  if (told_before && !told_of_brakes_) status_.ShowEnd();
}

void frmGauges::TellOfBrakes() {
  if (brakes_.fault != FileFault::None) {
    status_.Complain(ConfigUnchangedText(brakes_.fault));
  } else if (brakes_.backup_fault != FileFault::None) {
    status_.Warn(NoBackupText(brakes_.backup_fault));
  }
  told_of_brakes_ = told_of_brakes_ || !status_.Sentences().empty();
}

bool frmGauges::BrakeMessagesAreShown() const {
  return form_->MenuNamed("menBrake").Caption() == kShownCaption;
}

void frmGauges::SetBrakeCaption(bool shown) {
  form_->MenuNamed("menBrake").SetCaption(shown ? kShownCaption : kHiddenCaption);
}

}  // namespace panelkit
