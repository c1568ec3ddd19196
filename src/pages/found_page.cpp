#include "pages/found_page.h"

#include <algorithm>
#include <utility>

#include "pages/shown_page.h"
#include "pages/strip_text.h"

namespace panelkit {
namespace {

constexpr std::size_t kMostOffers = 5;
constexpr std::size_t kMostPassedOver = 200;

// What became of an offer, or would become of it; the beginning tells whether it was chosen.
std::string FateOf(const Machine& machine, const FindResult& result, const RequiredFile& required,
                   const Offer& offer, bool& is_chosen) {
  const std::string line = OfferText(machine, required, offer);
  is_chosen = true;
  for (const auto& [candidate, fault] : result.failed) {
    if (candidate == offer.candidate) return "not copied, since " + FaultText(fault) + ": " + line;
  }
  for (const InstalledFile& file : result.installed) {
    if (file.candidate != offer.candidate) continue;
    return (result.still_required ? "copied: " : "can be copied: ") + line + PurposeText(file);
  }
  is_chosen = false;
  return "also found: " + line;
}

// The chosen ones come first.
void AddOffers(const Machine& machine, const FindResult& result, std::size_t place,
               ShownPage& page) {
  std::vector<std::string> chosen;
  std::vector<std::string> others;
  for (const Offer& offer : result.offers[place]) {
    bool is_chosen = false;
    std::string line = FateOf(machine, result, result.required[place], offer, is_chosen);
    (is_chosen ? chosen : others).push_back(std::move(line));
  }
  chosen.insert(chosen.end(), others.begin(), others.end());
  for (std::size_t i = 0; i < std::min(chosen.size(), kMostOffers); ++i) {
    page.Line("    " + chosen[i]);
  }
  if (chosen.size() > kMostOffers) {
    page.Line("    and " + std::to_string(chosen.size() - kMostOffers) + " more");
  }
}

void AddNotFound(const Machine& machine, const FindResult& result, std::size_t place,
                 const HintsOf& hints, const CommandStyle& style, ShownPage& page) {
  const RequiredFile& required = result.required[place];
  page.Line("    not found");
  for (const NearOffer& near : result.near_offers[place]) {
    page.Line("    " + NearText(machine, style, required, near));
  }
  for (const Hint& hint : hints(required)) page.Line("    " + LineOf(hint, style));
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

std::string FoundPage(const Machine& machine, const Look& look, const HintsOf& hints,
                      const CommandStyle& style) {
  const FindResult& result = look.found;
  ShownPage page(result.still_required ? "GAUGES COPIED" : "SEARCH FOR MISSING GAUGES");
  page.BoldLine(result.still_required
                    ? InstalledText(result.installed.size(), result.still_required->size())
                    : FoundSentence(result));
  if (look.stopped) page.BoldLine("The search was stopped: there may be more.");
  for (const std::string& place : look.absent) {
    page.BoldLine("There is no folder or file " + machine.files.NativePath(place) + ".");
  }
  for (std::size_t place = 0; place < result.required.size(); ++place) {
    page.Line("");
    page.BoldLine(result.required[place].name);
    if (result.offers[place].empty()) {
      AddNotFound(machine, result, place, hints, style, page);
    } else {
      AddOffers(machine, result, place, page);
    }
  }
  AddPassedOver(machine, result.passed_over, page);
  if (result.still_required && !result.still_required->empty()) {
    page.Heading("STILL MISSING");
    for (const RequiredFile& file : *result.still_required) page.Line(file.name);
  }
  return page.Take();
}

std::string FoundSentence(const FindResult& found) {
  return FoundText(CountOfHelped(found), CountOfFound(found), found.required.size());
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
