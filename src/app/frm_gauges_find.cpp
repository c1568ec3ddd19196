// frmGauges: the search for missing gauges and the installation of what it finds.
#include <chrono>

#include "app/busy_state.h"
#include "app/frm_gauges.h"
#include "app/lively_archives.h"
#include "pages/found_page.h"
#include "pages/status_text.h"
#include "pages/strip_text.h"

namespace panelkit {

void frmGauges::LookForThem() {
  const auto places = form_->ChooseFolders("Look for the missing gauges in these folders");
  if (places.empty()) return OfferHints();
  LookIn(places);
}

void frmGauges::FindIn(const std::vector<std::string>& places) {
  if (!form_->MenuNamed("menProbe").Enabled()) return;
  RunAlone([&] {
    if (!report_ || report_->kind == ReportKind::Clean) MakeReport(false);
    LookIn(places);
  });
}

void frmGauges::LookIn(const std::vector<std::string>& places) {
  {
    const BusyState busy(*form_);
    look_ = std::make_unique<Look>(machine_.text);
    look_->found.required = RequiredFilesOf(*report_);
    look_->found.named = NamedFileParts(*report_, machine_.text);
    strip_.Show({LookingText(look_->found.required.size()),
                 {{"S&top", [this] { look_->stopped = true; }}}});
    LookThrough(machine_, places, ProgressOfSearch(places.size()), *look_);
    strip_.Hide();
    ProgressBar1.SetValue(static_cast<int>(places.size()));
    const std::string gauges = OwnGaugeFolders().gauges;
    const LivelyArchives archives(machine_.archives, [this] { loop_.ProcessPending(); });
    FindOffers({machine_.registry, machine_.files, machine_.text, machine_.cabinets, machine_.dates,
                machine_.folders, archives},
               gauges, {}, look_->found);
    InstallBest(machine_, gauges, true, KeepAnswering(), look_->found);
    ShowFound();
  }
  status_.End();
  OfferInstallation();
}

// Labels are slow: a text that is not painted need not be set.
CandidateSearch::OnProgress frmGauges::ProgressOfSearch(std::size_t places) {
  using Clock = std::chrono::steady_clock;
  static constexpr auto kBetweenTexts = std::chrono::milliseconds(40);
  ProgressBar1.SetMin(0);
  ProgressBar1.SetMax(static_cast<int>(places));
  return [this, told_at = Clock::time_point()](const SearchProgress& so_far) mutable {
    const auto now = Clock::now();
    if (now - told_at >= kBetweenTexts) {
      told_at = now;
      status_.Show(SearchedText(so_far.files, so_far.archives));
      ProgressBar1.SetValue(static_cast<int>(so_far.places));
    }
    loop_.ProcessPending();
    return !look_->stopped;
  };
}

StopRequest frmGauges::KeepAnswering() {
  return [this] {
    loop_.ProcessPending();
    return false;
  };
}

HintFinder frmGauges::Hints() {
  return {machine_, GetFSPath(), OwnGaugeFolders(), *report_,
          [answer = KeepAnswering()](const SearchProgress&) { return !answer(); }};
}

// As commands of the console that go on with this simulator.
CommandStyle frmGauges::Style() const {
  CommandStyle style;
  style.is_posix = machine_.files.NativePath(R"(C:\)") != R"(C:\)";
  if (!simulator_.empty()) {
    style.program +=
        " --simulator " + AsArgument(machine_.files.NativePath(simulator_), style.is_posix);
  }
  return style;
}

GaugeFolders frmGauges::OwnGaugeFolders() const {
  return FoldersOf(GetFSPath(), machine_.files.AppFolder());
}

void frmGauges::ShowFound() {
  ReportHtml = FoundPage(machine_, *look_, Hints(), Style());
  TellOf(ShowPage(OwnFile("FOUND.HTM")));
}

void frmGauges::OfferInstallation() {
  const std::string sentence = FoundSentence(look_->found);
  const NextStep elsewhere{"Look Else&where...", &frmGauges::LookForThem};
  if (look_->found.installed.empty()) return Offer(sentence, {elsewhere});
  Offer(sentence, {{"&Install Them", &frmGauges::InstallThem}, elsewhere});
}

void frmGauges::InstallThem() {
  const std::string gauges = OwnGaugeFolders().gauges;
  {
    const BusyState busy(*form_);
    look_->found.installed.clear();
    InstallBest(machine_, gauges, false, KeepAnswering(), look_->found);
    written_ = WrittenFiles(machine_.files, gauges, look_->found.installed);
    Scan(false);
    look_->found.still_required = RequiredFilesOf(*report_);
    ShowFound();
    if (!look_->found.failed.empty()) status_.Complain(kNotAllCopiedText);
  }
  status_.End();
  const std::string told = InstalledText(written_.size(), report_->names.size());
  const NextStep elsewhere{"Look Else&where...", &frmGauges::LookForThem};
  std::vector<NextStep> steps;
  if (!written_.empty()) steps.push_back({"Ta&ke Them Out Again", &frmGauges::TakeThemOut});
  if (!report_->names.empty()) steps.push_back(elsewhere);
  Offer(told, steps);
}

void frmGauges::TakeThemOut() {
  const std::string gauges = OwnGaugeFolders().gauges;
  TakenOut files;
  {
    const BusyState busy(*form_);
    files = TakeOut(machine_.files, gauges, written_);
    Scan(false);
    ReportHtml = TakenOutPage(files, BothNames(machine_.files, gauges));
    TellOf(ShowPage(OwnFile("FOUND.HTM")));
  }
  status_.End();
  OfferHints(TakenOutText(files.removed.size(), files.kept.size()) + " ");
}

}  // namespace panelkit
