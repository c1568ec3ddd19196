// frmGauges: the next steps that the strip below a report offers.
#include "app/busy_state.h"
#include "app/frm_gauges.h"
#include "cabinet/mod_gauges.h"
#include "gauges/doubtful_entries.h"
#include "pages/hints_page.h"
#include "pages/restored_page.h"
#include "pages/status_text.h"
#include "pages/strip_text.h"

namespace panelkit {

void frmGauges::Offer(const std::string& sentence, const std::vector<NextStep>& steps) {
  StripContent content{sentence, {}};
  for (const auto& [caption, handler] : steps) {
    content.buttons.push_back({caption, [this, handler = handler] {
                                 RunAlone([this, handler] { (this->*handler)(); });
                               }});
  }
  strip_.Show(std::move(content));
}

void frmGauges::OfferHints(const std::string& told) {
  const std::size_t missing = report_->names.size();
  if (missing == 0) return told.empty() ? void() : Offer(told, {});
  Offer(told + MissingText(missing),
        {{"Wh&y?", &frmGauges::ShowHints}, {"&Look for Them...", &frmGauges::LookForThem}});
}

void frmGauges::ShowHints() {
  {
    const BusyState busy(*form_);
    status_.Show("Looking through the simulator");
    ReportHtml =
        HintsPage(*report_, Hints(), Style(),
                  DoubtfulEntries(report_->named, modGauges::InstalledGauges, machine_.text));
    TellOf(ShowPage(OwnFile("HINTS.HTM")));
  }
  status_.End();
  OfferSearch();
}

void frmGauges::OfferSearch() {
  Offer(MissingText(report_->names.size()), {{"&Look for Them...", &frmGauges::LookForThem}});
}

void frmGauges::OfferPutBack() {
  const std::size_t moved = moved_.moved.size();
  if (moved == 0) return;
  const std::size_t named = NamedOtherwise(moved_.moved).size();
  if (named == 0 || named == moved) {
    return Offer(MovedText(moved, named), {{"Put Them &Back", &frmGauges::PutAllBack}});
  }
  Offer(MovedText(moved, named),
        {{"Put &Those Back", &frmGauges::PutThoseBack}, {"Put All &Back", &frmGauges::PutAllBack}});
}

void frmGauges::PutThoseBack() {
  std::vector<std::string> names;
  for (const auto& [file, mention] : NamedOtherwise(moved_.moved)) names.push_back(file);
  PutBack(names);
}

void frmGauges::PutAllBack() {
  PutBack(moved_.moved);
}

void frmGauges::PutBack(const std::vector<std::string>& names) {
  const GaugeFolders& folders = report_->folders;
  RestoreOutcome files;
  {
    const BusyState busy(*form_);
    files = RestoreGauges(machine_.files, machine_.text, {folders}, names, RestoreChoice::Own,
                          KeepAnswering());
    ReportHtml = RestoredPage(files, {BothNames(machine_.files, folders.gauges),
                                      BothNames(machine_.files, folders.spare)});
    TellOf(ShowPage(OwnFile("RESTORED.HTM")));
  }
  status_.End();
  const std::string told = PutBackText(files.restored.size(), names.size());
  std::erase_if(moved_.moved, [&](const std::string& name) {
    return !machine_.files.Exists(folders.spare + "\\" + name);
  });
  if (moved_.moved.empty()) return Offer(told, {});
  Offer(told + " " + StillInSpareText(moved_.moved.size()),
        {{"Put Them &Back", &frmGauges::PutAllBack}});
}

}  // namespace panelkit
