#include "pages/found_page.h"

#include <algorithm>

#include "pages/shown_page.h"
#include "pages/strip_text.h"

namespace panelkit {
namespace {

constexpr std::size_t kMostOffers = 5;
constexpr std::size_t kMostPassedOver = 200;

// What became of a candidate, or would become of it, as the beginning of its line; empty if another
// one was chosen.
std::string FateOf(const Machine& machine, const FindResult& result, const std::string& gauges,
                   const Candidate* candidate) {
  const auto failure =
      std::find_if(result.failed.begin(), result.failed.end(),
                   [candidate](const auto& failed) { return failed.candidate == candidate; });
  if (failure != result.failed.end()) {
    return "not copied, since " + FaultText(failure->fault) + ": ";
  }
  const bool is_installed = std::find(result.installed.begin(), result.installed.end(),
                                      candidate) != result.installed.end();
  if (is_installed) return result.still_required ? "copied: " : "can be copied: ";
  const std::string name = machine.text.Lower(candidate->name);
  const bool is_taken = machine.files.Exists(gauges + "\\" + candidate->name) &&
                        std::none_of(result.installed.begin(), result.installed.end(),
                                     [&](const Candidate* installed) {
                                       return machine.text.Lower(installed->name) == name;
                                     });
  return is_taken ? "not copied, since " + FaultText(InstallFault::NameTaken) + ": "
                  : std::string();
}

// Those with a fate of their own come first.
void AddOffers(const Machine& machine, const FindResult& result, const std::string& gauges,
               const RequiredFile& required, ShownPage& page) {
  std::vector<std::string> chosen;
  std::vector<std::string> others;
  for (const Offer& offer : OffersFor(required, result.pool, machine.text)) {
    const std::string fate = FateOf(machine, result, gauges, offer.candidate);
    const std::string line = OfferText(machine, required, offer);
    fate.empty() ? others.push_back("also found: " + line) : chosen.push_back(fate + line);
  }
  chosen.insert(chosen.end(), others.begin(), others.end());
  for (std::size_t i = 0; i < std::min(chosen.size(), kMostOffers); ++i) {
    page.Line("    " + chosen[i]);
  }
  if (chosen.size() > kMostOffers) {
    page.Line("    and " + std::to_string(chosen.size() - kMostOffers) + " more");
  }
}

void AddPassedOver(const Machine& machine, const std::vector<PassedOver>& passed_over,
                   ShownPage& page) {
  if (passed_over.empty()) return;
  page.Heading("PASSED OVER");
  for (std::size_t i = 0; i < std::min(passed_over.size(), kMostPassedOver); ++i) {
    page.Line(PassedOverText(machine, passed_over[i]));
  }
  if (passed_over.size() > kMostPassedOver) {
    page.Line("and " + std::to_string(passed_over.size() - kMostPassedOver) + " more");
  }
}

}  // namespace

std::string FoundPage(const Machine& machine, const Look& look, const std::string& gauges,
                      const HintFinder& hints) {
  const FindResult& result = look.found;
  ShownPage page(result.still_required ? "GAUGES COPIED" : "SEARCH FOR MISSING GAUGES");
  page.BoldLine(result.still_required
                    ? InstalledText(result.installed.size(), result.still_required->size())
                    : FoundText(CountOfHelped(result, machine.text), result.required.size()));
  if (look.stopped) page.BoldLine("The search was stopped: there may be more.");
  for (const std::string& place : look.absent) {
    page.BoldLine("There is no folder or file " + machine.files.NativePath(place) + ".");
  }
  for (const RequiredFile& file : result.required) {
    page.Line("");
    page.BoldLine(file.name);
    if (!OffersFor(file, result.pool, machine.text).empty()) {
      AddOffers(machine, result, gauges, file, page);
      continue;
    }
    page.Line("    not found");
    for (const Hint& hint : hints.HintsFor(file)) page.Line("    " + hints.LineOf(hint));
  }
  AddPassedOver(machine, result.passed_over, page);
  if (result.still_required && !result.still_required->empty()) {
    page.Heading("STILL MISSING");
    for (const RequiredFile& file : *result.still_required) page.Line(file.name);
  }
  return page.Take();
}

std::string TakenOutPage(const TakenOut& files, const std::string& gauges) {
  ShownPage page("GAUGES TAKEN OUT AGAIN");
  page.Names("Removed from " + gauges + ":", files.removed);
  if (!files.kept.empty()) {
    page.Line("");
    page.Names("Left there, since they have changed or could not be removed:", files.kept);
  }
  return page.Take();
}

}  // namespace panelkit
