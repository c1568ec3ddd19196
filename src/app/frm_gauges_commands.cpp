// frmGauges: the three report commands.
#include "app/busy_state.h"
#include "app/frm_gauges.h"
#include "cabinet/mod_gauges.h"
#include "gauges/gauge_file.h"
#include "pages/page_text.h"
#include "pages/report_page.h"
#include "pages/status_text.h"

namespace panelkit {

void frmGauges::menProbe_Click() {
  MakeReport(false);
}

void frmGauges::menShow_Click() {
  MakeReport(true);
}

void frmGauges::MakeReport(bool list_all_gauges) {
  LoadWorking();
  {
    const BusyState busy(*form_);
    Scan(list_all_gauges);
    TellOfReport();
    TellOf(ShowPage(PageFile()));
  }
  status_.End();
  next_.OfferHints();
}

void frmGauges::Scan(bool list_all_gauges) {
  ListAllGauges = list_all_gauges;
  CollectRequiredOnly = false;
  ReportHtml = PagePrelude;
  ReportHtml += ReportHeading(list_all_gauges ? ReportKind::Show : ReportKind::Probe);
  EnumerateGauges();
  report_->names = Sorted(MissingGauges.Names());
  ReportHtml += SummaryLines(*report_);
}

// An empty report must not read as "nothing is missing", nor a cut one as a whole one.
void frmGauges::TellOfReport() {
  if (!aircraft_listed_) {
    status_.Complain("No aircraft were found: " + NoAircraftText(machine_.files, GetFSPath()) +
                     ".");
  }
  if (TablesAreFull()) status_.Complain(kReportNotWholeText);
  if (!not_named_.empty()) status_.Complain(CabinetsNotNamedText(not_named_));
}

void frmGauges::menRemove_Click() {
  LoadWorking();
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
  status_.End();
  next_.OfferPutBack();
}

std::optional<SpareSelection> frmGauges::FindSpare() {
  ListAllGauges = false;
  CollectRequiredOnly = true;
  ReportHtml = PagePrelude;
  EnumerateGauges();
  const std::string hindrance = WhyNothingMoves();
  if (!hindrance.empty()) {
    status_.Complain("Nothing was moved: " + hindrance + ".");
    return std::nullopt;
  }
  if (!not_named_.empty()) status_.Warn(CabinetsNotNamedText(not_named_));
  std::vector<std::string> required = MissingGauges.Names();
  if (Careful) {
    for (const OtherwiseNamedFile& file : report_->otherwise_named) required.push_back(file.name);
  }
  return SelectSpare(modGauges::InstalledGauges, required, machine_.text);
}

std::vector<std::pair<std::string, Mention>> frmGauges::NamedOtherwise(
    const std::vector<std::string>& files) const {
  std::vector<std::pair<std::string, Mention>> named;
  if (!report_) return named;
  for (const std::string& file : files) {
    const std::string name = machine_.text.Lower(LessExtension(file));
    for (const OtherwiseNamedFile& other : report_->otherwise_named) {
      if (machine_.text.Lower(other.name) == name) named.emplace_back(file, other.mentions[0]);
    }
  }
  return named;
}

// With an incomplete list of required gauges, Clean would move needed ones.
std::string frmGauges::WhyNothingMoves() const {
  if (!aircraft_listed_) return NoAircraftText(machine_.files, GetFSPath());
  if (TablesAreFull()) return "there are more than 32,767 gauges";
  const std::size_t unreadable = unreadable_.size() + unreadable_variants_.size();
  if (!Careful || unreadable == 0) return {};
  return "panels that could not be read: " + std::to_string(unreadable);
}

bool frmGauges::TablesAreFull() const {
  return modGauges::InstalledGauges.Overflowed() || MissingGauges.Overflowed();
}

void frmGauges::ArchiveSpare(const SpareSelection& spare) {
  report_->folders = FoldersOf(GetFSPath(), machine_.files.AppFolder());
  moved_ = ArchiveGauges(machine_.files, machine_.text, report_->folders, spare.SpareFiles, Stop);
  if (!moved_.left.empty()) return;
  report_->removed_files = static_cast<int>(spare.SpareFiles.size());
  report_->names = Sorted(spare.keys);
  ReportHtml += SummaryLines(*report_);
  TellOf(ShowPage(PageFile()));
  const std::size_t named_otherwise = NamedOtherwise(moved_.moved).size();
  const std::string done = CleanDoneText(moved_.stayed.size(), unreadable_.size(), named_otherwise);
  if (!moved_.stayed.empty()) {
    status_.Complain(done);
  } else if (unreadable_.size() + named_otherwise > 0) {
    status_.Warn(done);
  }
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

}  // namespace panelkit
