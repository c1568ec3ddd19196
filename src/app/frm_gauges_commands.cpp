// frmGauges: the three report commands.
#include "app/busy_state.h"
#include "app/frm_gauges.h"
#include "cabinet/mod_gauges.h"
#include "gauges/gauge_mover.h"
#include "pages/page_text.h"
#include "pages/report_page.h"

namespace panelkit {

void frmGauges::menProbe_Click() {
  MakeReport(false);
}

void frmGauges::menShow_Click() {
  MakeReport(true);
}

void frmGauges::MakeReport(bool list_all_gauges) {
  BeginCommand();
  if (!LoadWorking()) return;
  {
    const BusyState busy(*form_);
    ListAllGauges = list_all_gauges;
    CollectRequiredOnly = false;
    ReportHtml = PagePrelude;
    ReportHtml += ReportHeading(list_all_gauges ? ReportKind::Show : ReportKind::Probe);
    EnumerateGauges();
    report_->names = Sorted(MissingGauges.Names());
    ReportHtml += SummaryLines(*report_);
    ShowPage(PageFile());
  }
  EndCommand();
}

void frmGauges::menRemove_Click() {
  BeginCommand();
  if (!LoadWorking()) return;
  {
    const BusyState busy(*form_);
    const auto spare = FindSpare();
    if (spare) {
      ArchiveSpare(*spare);
    } else {
      report_.reset();
      LoadWelcome();
    }
  }
  EndCommand();
}

void frmGauges::ArchiveSpare(const SpareSelection& spare) {
  report_->folders = FoldersOf(GetFSPath(), machine_.files.AppFolder());
  const MoveOutcome outcome = ArchiveGauges(machine_.files, report_->folders, spare.SpareFiles);
  report_->removed_files = static_cast<int>(spare.SpareFiles.size());
  report_->names = Sorted(spare.keys);
  ReportHtml += SummaryLines(*report_);
  if (ShowPage(PageFile()) && !outcome.stayed.empty()) {
    Complain("Done - files that stayed in Gauges: " + std::to_string(outcome.stayed.size()));
  }
}

std::optional<SpareSelection> frmGauges::FindSpare() {
  ListAllGauges = false;
  CollectRequiredOnly = true;
  ReportHtml = PagePrelude;
  EnumerateGauges();
  if (!aircraft_listed_) {
    Complain("Nothing was moved: the Aircraft folder cannot be read.");
    return std::nullopt;
  }
  if (modGauges::InstalledGauges.Overflowed() || MissingGauges.Overflowed()) {
    Complain("Nothing was moved: there are more than 32,767 gauges.");
    return std::nullopt;
  }
  return SelectSpare(modGauges::InstalledGauges, MissingGauges.Names(), machine_.text);
}

std::vector<std::string> frmGauges::Sorted(const std::vector<std::string>& names) {
  List1.Clear();
  for (const std::string& name : names) List1.AddItem(name);
  std::vector<std::string> sorted;
  for (int position = 0; position < List1.ListCount(); ++position) {
    List1.SetListIndex(position);
    sorted.push_back(List1.Text());
  }
  return sorted;
}

void frmGauges::EndCommand() {
  lblStatus.SetCaption(complaint_.empty() ? "Done" : complaint_);
}

}  // namespace panelkit
