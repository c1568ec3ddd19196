// frmGauges: the parking brake annunciator.
#include <optional>

#include "app/frm_gauges.h"
#include "brake/config_edit.h"
#include "pages/brake_page.h"

namespace panelkit {
namespace {

constexpr const char* kShownCaption = "&Turn Parking Brake Annunciator OFF";
constexpr const char* kHiddenCaption = "&Turn Parking Brake Annunciator ON";

std::string FsConfigFileIn(const std::string& FSPath) {
  return FSPath + "\\fs2002.cfg";
}

}  // namespace

void frmGauges::SetupBrakes() {
  const std::string FSPath = GetFSPath();
  if (FSPath.empty()) {
    ShowNoSimulator();
    return;
  }
  const std::string FsConfigFile = FsConfigFileIn(FSPath);
  const LineTurn turn = [this] { loop_.ProcessPending(); };
  const auto config = machine_.files.Read(FsConfigFile).bytes;
  const auto shown = config ? BrakeMessagesShown(*config, turn) : true;
  SetBrakeCaption(shown.value_or(true));
  if (shown) return;
  BackUp(AsRead(*config, turn));
  machine_.files.Replace(FsConfigFile, WithSettingAdded(*config, turn), Durability::Flushed);
}

// A backup that cannot be made keeps nothing from being edited.
void frmGauges::BackUp(const std::string& config) {
  const std::string BackupFolder = machine_.files.AppFolder() + "\\Backups";
  const std::string BackupFile = BackupFolder + "\\FS2002.cfg";
  if (!machine_.files.Exists(BackupFolder)) machine_.files.MakeFolder(BackupFolder);
  machine_.files.Replace(BackupFile, config, Durability::Flushed);
}

void frmGauges::SetBrakes(int b) {
  const std::string FsConfigFile = FsConfigFileIn(GetFSPath());
  const auto config = machine_.files.Read(FsConfigFile).bytes;
  if (!config) return;
  const LineTurn turn = [this] { loop_.ProcessPending(); };
  machine_.files.Replace(FsConfigFile, WithSettingSet(*config, b, turn), Durability::Flushed);
}

void frmGauges::menBrake_Click() {
  BeginCommand();
  ReportHtml = BrakePageOpening(GetFSPath(), machine_.files.AppFolder());
  const bool shown = BrakeMessagesAreShown();
  SetBrakeCaption(!shown);
  SetBrakes(shown ? 0 : 1);
  ReportHtml += BrakePageClosing();
  ShowPage(BrakePageFile());
}

bool frmGauges::BrakeMessagesAreShown() const {
  return form_->MenuNamed("menBrake").Caption() == kShownCaption;
}

void frmGauges::SetBrakeCaption(bool shown) {
  form_->MenuNamed("menBrake").SetCaption(shown ? kShownCaption : kHiddenCaption);
}

}  // namespace panelkit
