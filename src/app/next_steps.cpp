#include "app/next_steps.h"

#include <chrono>
#include <utility>

#include "app/busy_state.h"
#include "app/frm_gauges.h"
#include "cabinet/mod_gauges.h"
#include "gauges/doubtful_entries.h"
#include "pages/found_page.h"
#include "pages/restored_page.h"
#include "pages/status_text.h"
#include "pages/strip_text.h"
#include "simulator/remembered_simulator.h"

namespace panelkit {

NextSteps::NextSteps(frmGauges& program, const Machine& machine, Form& form, EventLoop& loop,
                     StatusLine& status)
    : program_(program),
      machine_(machine),
      form_(form),
      status_(status),
      strip_(form.StripOf("WebBrowser1")),
      bar_(form.ProgressBarNamed("ProgressBar1")),
      keep_answering_([&loop] {
        loop.ProcessPending();
        return false;
      }),
      style_(CommandStyle::Of(machine.files)) {}

void NextSteps::Offer(const std::string& sentence, std::vector<StripButton> steps) {
  for (StripButton& step : steps) {
    step.on_click = [this, work = std::move(step.on_click)] { program_.RunAlone(work); };
  }
  offered_ = {sentence, std::move(steps)};
  strip_.Show(offered_);
}

void NextSteps::Do(const std::function<void()>& work) {
  {
    const BusyState busy(form_);
    work();
  }
  status_.End();
}

void NextSteps::OfferHints(const std::string& told) {
  const std::size_t missing = program_.Report()->names.size();
  if (missing == 0) return told.empty() ? void() : Offer(told, {});
  Offer(told + MissingText(missing),
        {{"Wh&y?", [this] { ShowHints(); }}, Searching("&Look for Them...")});
}

void NextSteps::ShowHints() {
  const GaugeReport& report = *program_.Report();
  Do([&] {
    status_.Show("Looking through the simulator");
    program_.ShowOwnPage(
        "HINTS.HTM",
        HintsPage(report, Hints(), Style(),
                  DoubtfulEntries(report.named, modGauges::InstalledGauges, machine_.text)));
  });
  Offer(MissingText(report.names.size()), {Searching("&Look for Them...")});
}

void NextSteps::OfferPutBack() {
  const Names& moved = program_.Moved().moved;
  if (moved.empty()) return;
  Names named;
  for (const auto& [file, mention] : program_.NamedOtherwise(moved)) named.push_back(file);
  const std::string told = MovedText(moved.size(), named.size());
  const auto all = [moved, this] { PutBack(moved, moved); };
  if (named.empty() || named.size() == moved.size()) return Offer(told, {{"Put Them &Back", all}});
  Offer(told, {{"Put &Those Back", [moved, named, this] { PutBack(named, moved); }},
               {"Put All &Back", all}});
}

void NextSteps::PutBack(const Names& names, Names moved) {
  const GaugeFolders folders = Folders();
  RestoreOutcome files;
  Do([&] {
    files = RestoreGauges(machine_.files, machine_.text, {folders}, names, RestoreChoice::Own,
                          keep_answering_);
    program_.ShowOwnPage("RESTORED.HTM",
                         RestoredPage(files, {BothNames(machine_.files, folders.gauges),
                                              BothNames(machine_.files, folders.spare)}));
  });
  const std::string told = PutBackText(files.restored.size(), names.size());
  std::erase_if(moved, [&](const std::string& name) {
    return !machine_.files.Exists(folders.spare + "\\" + name);
  });
  if (moved.empty()) return Offer(told, {});
  Offer(told + " " + StillInSpareText(moved.size()),
        {{"Put Them &Back", [=, this] { PutBack(moved, moved); }}});
}

StripButton NextSteps::Searching(const char* caption) {
  return {caption, [this] { LookForThem(); }};
}

void NextSteps::LookForThem() {
  const Names places = form_.ChooseFolders("Look for the missing gauges in these folders");
  if (places.empty()) return OfferAgain();
  LookIn(places);
}

void NextSteps::LookIn(const Names& places) {
  const auto look = std::make_shared<Look>(machine_.text);
  FindResult& found = look->found;
  Do([&] {
    found.required = RequiredFilesOf(*program_.Report());
    found.named = NamedFileParts(*program_.Report(), machine_.text);
    strip_.Show(
        {LookingText(found.required.size()), {{"S&top", [look] { look->stopped = true; }}}});
    LookThrough(machine_, places, ProgressOfSearch(places.size(), *look), *look);
    bar_.SetValue(static_cast<int>(places.size()));
    const std::string gauges = Folders().gauges;
    // What was found until a stop is read all the same, until another one.
    const bool search_was_stopped = std::exchange(look->stopped, false);
    FindOffers(
        machine_, gauges, {}, [&] { return keep_answering_() || look->stopped; }, found);
    look->stopped = look->stopped || search_was_stopped;
    strip_.Hide();
    InstallBest(machine_, gauges, true, keep_answering_, found);
    ShowFound(*look);
  });
  const StripButton elsewhere = Searching("Look Else&where...");
  if (found.installed.empty()) return Offer(FoundSentence(found), {elsewhere});
  Offer(FoundSentence(found), {{"&Install Them", [=, this] { InstallThem(look); }}, elsewhere});
}

// Labels are slow: a text that is not painted need not be set.
CandidateSearch::OnProgress NextSteps::ProgressOfSearch(std::size_t places, const Look& look) {
  using Clock = std::chrono::steady_clock;
  static constexpr auto kBetweenTexts = std::chrono::milliseconds(40);
  bar_.SetMin(0);
  bar_.SetMax(static_cast<int>(places));
  return [this, &look, told_at = Clock::time_point()](const SearchProgress& so_far) mutable {
    const auto now = Clock::now();
    if (now - told_at >= kBetweenTexts) {
      told_at = now;
      status_.Show(SearchedText(so_far.files, so_far.archives));
      bar_.SetValue(static_cast<int>(so_far.places));
    }
    return !keep_answering_() && !look.stopped;
  };
}

void NextSteps::ShowFound(const Look& look) {
  program_.ShowOwnPage("FOUND.HTM", FoundPage(machine_, look, Hints(), Style()));
}

void NextSteps::InstallThem(const Found& look) {
  const std::string gauges = Folders().gauges;
  FindResult& found = look->found;
  std::vector<WrittenFile> written;
  Do([&] {
    found.installed.clear();
    InstallBest(machine_, gauges, false, keep_answering_, found);
    written = WrittenFiles(machine_.files, gauges, found.installed);
    program_.Scan(false);
    found.still_required = RequiredFilesOf(*program_.Report());
    ShowFound(*look);
    if (!found.failed.empty()) status_.Complain(kNotAllCopiedText);
  });
  const std::size_t missing = program_.Report()->names.size();
  std::vector<StripButton> steps;
  if (!written.empty()) {
    steps.push_back({"Ta&ke Them Out Again", [=, this] { TakeThemOut(written); }});
  }
  if (missing > 0) steps.push_back(Searching("Look Else&where..."));
  Offer(InstalledText(written.size(), missing), std::move(steps));
}

void NextSteps::TakeThemOut(const std::vector<WrittenFile>& written) {
  const std::string gauges = Folders().gauges;
  TakenOut files;
  Do([&] {
    files = TakeOut(machine_.files, gauges, written);
    program_.Scan(false);
    program_.ShowOwnPage("FOUND.HTM", TakenOutPage(files, BothNames(machine_.files, gauges)));
  });
  OfferHints(TakenOutText(files.removed.size(), files.kept.size()) + " ");
}

void NextSteps::OfferSimulators(const std::string& gone, std::size_t simulators) {
  const std::string told = gone.empty() ? std::string() : SimulatorGoneText(gone) + " ";
  const std::string FSPath = program_.GetFSPath();
  if (FSPath.empty()) {
    return Offer(told + kNoSimulatorText,
                 {StripButton{"Choose &Its Folder...", [this] { ChooseSimulator(); }}});
  }
  if (gone.empty() && simulators < 2) return;
  Offer(told + SimulatorText(machine_.files.NativePath(FSPath), simulators),
        {StripButton{"Choose &Another...", [this] { ChooseSimulator(); }}});
}

void NextSteps::ChooseSimulator() {
  const Names folders = form_.ChooseFolders("Choose the folder of Flight Simulator 2002");
  if (folders.empty()) return OfferAgain();
  const std::string& folder = folders.front();
  if (!IsSimulator(machine_.files, folder)) {
    return Offer(NoSimulatorThereText(machine_.files.NativePath(folder)),
                 {StripButton{"Choose &Another...", [this] { ChooseSimulator(); }}});
  }
  program_.StartWith(folder);
  const FileFault fault = RememberSimulator(machine_.files, folder);
  if (fault != FileFault::None) status_.Complain(SimulatorNotKeptText(fault));
}

GaugeFolders NextSteps::Folders() const {
  return FoldersOf(program_.GetFSPath(), machine_.files.AppFolder());
}

HintsOf NextSteps::Hints() {
  const auto finder = std::make_shared<const HintFinder>(
      machine_, program_.GetFSPath(), Folders(), *program_.Report(),
      [this](const SearchProgress&) { return !keep_answering_(); });
  return [this, finder](const RequiredFile& required) {
    keep_answering_();
    return finder->HintsFor(required);
  };
}

CommandStyle NextSteps::Style() const {
  CommandStyle style = style_;
  const std::string& chosen = program_.ChosenSimulator();
  if (!chosen.empty()) {
    const std::string folder = machine_.files.NativePath(chosen);
    style.program += " --simulator " + AsArgument(folder, style.is_posix);
  }
  return style;
}

}  // namespace panelkit
