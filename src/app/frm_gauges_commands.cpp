// frmGauges: the three report commands.
#include "app/busy_state.h"
#include "app/frm_gauges.h"
#include "cabinet/mod_gauges.h"
#include "gauges/gauge_mover.h"
#include "pages/page_text.h"
#include "pages/report_page.h"

namespace panelkit {

void frmGauges::menProbe_Click() {
  MakeReport(kProbeReport);
}

void frmGauges::menShow_Click() {
  MakeReport(kShowReport);
}

void frmGauges::MakeReport(const GaugeReport& report) {
  BeginCommand();
  if (!LoadWorking()) return;
  {
    const BusyState busy(*form_);
    ListAllGauges = report.list_all_gauges;
    CollectRequiredOnly = false;
    ReportHtml = PagePrelude;
    ReportHtml += ReportHeading(report);
    EnumerateGauges();
    ReportHtml += SummaryHeading(report, MissingGauges.UpperBound());
    AppendSortedNames(MissingGauges.Names());
    ReportHtml += ClosingLines();
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
      LoadWelcome();
    }
  }
  EndCommand();
}

void frmGauges::ArchiveSpare(const SpareSelection& spare) {
  const std::string FSPath = GetFSPath();
  const std::string AppFolder = machine_.files.AppFolder();
  const MoveOutcome outcome =
      ArchiveGauges(machine_.files, FoldersOf(FSPath, AppFolder), spare.SpareFiles);
  ReportHtml += RemovalHeading(static_cast<int>(spare.SpareFiles.size()),
                               static_cast<int>(spare.keys.size()), FSPath, AppFolder);
  AppendSortedNames(spare.keys);
  ReportHtml += ClosingLines();
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

void frmGauges::AppendSortedNames(const std::vector<std::string>& names) {
  List1.Clear();
  for (const std::string& name : names) List1.AddItem(name);
  for (int position = 0; position < List1.ListCount(); ++position) {
    List1.SetListIndex(position);
    ReportHtml += NameLine(List1.Text());
  }
}

void frmGauges::EndCommand() {
  lblStatus.SetCaption(complaint_.empty() ? "Done" : complaint_);
}

}  // namespace panelkit
