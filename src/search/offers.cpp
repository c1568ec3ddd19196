#include "search/offers.h"

#include <algorithm>
#include <set>
#include <tuple>

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
  for (auto offer = offers.begin(); offer != offers.end();) {
    const bool is_there = std::any_of(offers.begin(), offer, [&](const Offer& other) {
      return other.candidate->path == offer->candidate->path &&
             other.candidate->inside == offer->candidate->inside;
    });
    offer = is_there ? offers.erase(offer) : std::next(offer);
  }
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
  std::set<const Candidate*> taken;
  std::set<const Candidate*> refused;
  std::set<std::string> names;  // Of the taken ones, lowered.
  for (std::size_t i = 0; i < required.size(); ++i) {
    const std::vector<Offer>& offers = all_offers[i];
    std::set<std::string_view> open(required[i].entries.begin(), required[i].entries.end());
    const auto satisfies_open = [&open](const Offer& offer) {
      return std::any_of(offer.entries.begin(), offer.entries.end(),
                         [&open](std::string_view entry) { return open.contains(entry); });
    };
    const auto close = [&open](const Offer& offer) {
      for (const std::string_view entry : offer.entries) open.erase(entry);
    };
    for (const Offer& offer : offers) {
      if (taken.contains(offer.candidate)) close(offer);
    }
    for (const Offer& offer : offers) {
      const Candidate& candidate = *offer.candidate;
      const std::string name = text.Lower(candidate.name);
      if (!satisfies_open(offer) || names.contains(name) || refused.contains(&candidate) ||
          offer.name_is_taken) {
        continue;
      }
      if (!take(candidate)) {
        refused.insert(&candidate);
        continue;
      }
      taken.insert(&candidate);
      names.insert(name);
      close(offer);
    }
  }
}

}  // namespace panelkit
