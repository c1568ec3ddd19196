#include "search/offers.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

#include "gauges/gauge_file.h"

namespace panelkit {
namespace {

auto Rank(const Offer& offer) {
  return std::tuple(offer.has_exact_name, !offer.candidate->is_renamed, offer.entries.size(),
                    offer.candidate->modified);
}

}  // namespace

std::vector<Offer> OffersFor(const RequiredFile& required, const CandidatePool& pool,
                             const Machine& machine, const std::string& gauges) {
  const Text& text = machine.text;
  std::vector<Offer> offers;
  for (const std::string& entry : required.entries) {
    for (const Candidate* candidate : pool.ThatSatisfy(entry)) {
      auto offer = std::find_if(offers.begin(), offers.end(),
                                [&](const Offer& other) { return other.candidate == candidate; });
      if (offer == offers.end()) {
        const std::string stem = LessExtension(candidate->name);
        const bool exact = text.Lower(stem) == text.Lower(required.name);
        offer = offers.insert(offers.end(), {candidate, exact, false, {}});
      }
      offer->entries.push_back(entry);
    }
  }
  std::stable_sort(offers.begin(), offers.end(),
                   [](const Offer& a, const Offer& b) { return Rank(a) > Rank(b); });
  // A file that may have two names is offered once, by the better one.
  std::set<std::pair<std::string_view, std::vector<std::string>>> places;
  std::erase_if(offers, [&](const Offer& offer) {
    return !places.emplace(offer.candidate->path, offer.candidate->inside).second;
  });
  for (Offer& offer : offers) {
    offer.name_is_taken = machine.files.Exists(gauges + "\\" + offer.candidate->name);
  }
  return offers;
}

Advantage AdvantageOver(const Offer& a, const Offer& b) {
  if (a.has_exact_name != b.has_exact_name) return Advantage::ExactName;
  if (a.candidate->is_renamed != b.candidate->is_renamed) return Advantage::NotRenamed;
  if (a.entries.size() != b.entries.size()) return Advantage::MoreEntries;
  return a.candidate->modified != b.candidate->modified ? Advantage::Newer : Advantage::FirstMet;
}

void ForEachChoice(const std::vector<RequiredFile>& required,
                   const std::vector<std::vector<Offer>>& all_offers, const Text& text,
                   const std::function<bool(const Candidate&)>& take) {
  std::map<const Candidate*, bool> tried;  // Whether it was taken.
  std::set<std::string> names;             // Of the taken ones, lowered.
  for (std::size_t i = 0; i < required.size(); ++i) {
    std::set<std::string_view> open(required[i].entries.begin(), required[i].entries.end());
    const auto close = [&open](const Offer& offer) {
      for (const std::string_view entry : offer.entries) open.erase(entry);
    };
    for (const Offer& offer : all_offers[i]) {
      const auto known = tried.find(offer.candidate);
      if (known != tried.end() && known->second) close(offer);
    }
    for (const Offer& offer : all_offers[i]) {
      const std::string name = text.Lower(offer.candidate->name);
      const bool helps = std::any_of(offer.entries.begin(), offer.entries.end(),
                                     [&](std::string_view entry) { return open.contains(entry); });
      if (!helps || offer.name_is_taken || names.contains(name)) continue;
      const auto [known, is_new] = tried.try_emplace(offer.candidate, false);
      if (!is_new || !take(*offer.candidate)) continue;
      known->second = true;
      names.insert(name);
      close(offer);
    }
  }
}

}  // namespace panelkit
