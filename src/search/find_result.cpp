#include "search/find_result.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <set>
#include <utility>

#include "gauges/gauge_file.h"
#include "search/gauge_names.h"

namespace panelkit {
namespace {

// Reads what `offers` has and takes out of them, and passes over, what is unfit.
void DropUnfit(const Machine& machine, const std::vector<std::size_t>& places,
               const StopRequest& stop, FindResult& result) {
  std::vector<const Candidate*> candidates;
  for (const std::size_t place : places) {
    for (const Offer& offer : result.offers[place]) {
      if (!result.contents.contains(offer.candidate)) candidates.push_back(offer.candidate);
    }
  }
  ContentCheck check = CheckContents(machine, candidates, stop);
  result.contents.merge(check.contents);
  std::move(check.unfit.begin(), check.unfit.end(), std::back_inserter(result.passed_over));
  for (const std::size_t place : places) {
    std::erase_if(result.offers[place],
                  [&](const Offer& offer) { return !result.contents.contains(offer.candidate); });
  }
}

// The places of the required files that nothing is offered for.
std::vector<std::size_t> WithoutOffers(const FindResult& result) {
  std::vector<std::size_t> places;
  for (std::size_t place = 0; place < result.required.size(); ++place) {
    if (result.offers[place].empty()) places.push_back(place);
  }
  return places;
}

// Offers each required file that nothing is offered for what `choose` names for its place, under
// its own name.
template <typename Choose>
void OfferRenamed(const Machine& machine, const std::string& gauges, const Choose& choose,
                  const StopRequest& stop, FindResult& result) {
  const std::vector<std::size_t> places = WithoutOffers(result);
  for (const std::size_t place : places) {
    if (stop()) break;
    const RequiredFile& required = result.required[place];
    for (const Candidate* candidate : choose(place)) {
      const Candidate* added = result.pool.AddAs(required, *candidate);
      for (Offer& offer : OffersFor(required, result.pool, machine, gauges)) {
        if (offer.candidate == added) result.offers[place].push_back(std::move(offer));
      }
    }
  }
  DropUnfit(machine, places, stop, result);
}

// Cabinets of other names with exactly the gauges that are wanted.
std::vector<const Candidate*> SameCabinets(const FindResult& result, std::size_t place,
                                           const Text& text) {
  auto cabinets = result.pool.WithExactlyTheGaugesOf(result.required[place]);
  std::erase_if(cabinets, [&](const Candidate* cabinet) {
    return result.named.contains(text.Lower(LessExtension(cabinet->name)));
  });
  return cabinets;
}

bool IsOneFile(const CandidatePool& pool) {
  const auto& all = pool.All();
  return !all.empty() && std::all_of(all.begin(), all.end(), [&](const Candidate& candidate) {
    return candidate.path == all.front().path && candidate.inside == all.front().inside;
  });
}

// What the user accepts for a required file by naming it: what has nearly its name, or else the
// only file that there is.
std::vector<const Candidate*> Accepted(const FindResult& result, std::size_t place,
                                       const std::vector<std::string>& accepted, const Text& text) {
  const bool is_accepted =
      std::any_of(accepted.begin(), accepted.end(), [&](const std::string& name) {
        return text.Lower(name) == text.Lower(result.required[place].name);
      });
  if (!is_accepted) return {};
  const auto& near = result.near_offers[place];
  if (!near.empty()) return {near.front().candidate};
  if (IsOneFile(result.pool)) return {&result.pool.All().front()};
  return {};
}

void FindNearOffers(const Machine& machine, const std::string& gauges, const StopRequest& stop,
                    FindResult& result) {
  NearNames names(machine.text);
  std::vector<const Candidate*> candidates;
  for (const Candidate& candidate : result.pool.All()) {
    const std::string stem = LessExtension(candidate.name);
    if (result.named.contains(machine.text.Lower(stem))) continue;
    names.Add(stem);
    candidates.push_back(&candidate);
  }
  std::vector<const Candidate*> near;
  for (const std::size_t place : WithoutOffers(result)) {
    if (stop()) break;
    const RequiredFile& required = result.required[place];
    const auto would_help = [&](std::size_t number) {
      return result.pool.WouldSatisfyAs(required, *candidates[number]);
    };
    for (const auto& [number, likeness] : names.LikeThis(required.name, would_help)) {
      const std::string& now = candidates[number]->name;
      std::string name = required.name + now.substr(now.size() - kExtensionLength);
      const bool is_taken = machine.files.Exists(gauges + "\\" + name);
      result.near_offers[place].push_back(
          {candidates[number], likeness, is_taken ? std::move(name) : std::string()});
      near.push_back(candidates[number]);
    }
  }
  ContentCheck check = CheckContents(machine, near, stop);
  result.contents.merge(check.contents);
  for (auto& offers : result.near_offers) {
    std::erase_if(
        offers, [&](const NearOffer& offer) { return !result.contents.contains(offer.candidate); });
  }
}

// Adds the aircraft whose missing entries the offer has.
void AddAircraft(const RequiredFile& required, const Offer& offer, InstalledFile& file) {
  for (std::size_t i = 0; i < required.entries.size(); ++i) {
    if (std::find(offer.entries.begin(), offer.entries.end(), required.entries[i]) ==
        offer.entries.end()) {
      continue;
    }
    for (const std::string& name : required.aircraft[i]) {
      auto& all = file.aircraft;
      if (std::find(all.begin(), all.end(), name) == all.end()) all.push_back(name);
    }
  }
}

// What the installed candidate fills, and what it was chosen from.
InstalledFile Described(const Candidate& candidate, const FindResult& result, const Text& text) {
  InstalledFile file{&candidate, {}};
  std::set<std::uint64_t> contents{result.contents.at(&candidate)};
  for (std::size_t place = 0; place < result.required.size(); ++place) {
    const auto& offers = result.offers[place];
    const auto own = std::find_if(offers.begin(), offers.end(), [&](const Offer& offer) {
      return offer.candidate == &candidate;
    });
    if (own == offers.end()) continue;
    AddAircraft(result.required[place], *own, file);
    for (auto offer = offers.begin(); offer != offers.end(); ++offer) {
      if (text.Lower(offer->candidate->name) != text.Lower(candidate.name)) continue;
      const bool is_new = contents.insert(result.contents.at(offer->candidate)).second;
      if (is_new && offer > own && !file.advantage) file.advantage = AdvantageOver(*own, *offer);
    }
  }
  file.others = contents.size() - 1;
  return file;
}

}  // namespace

void FindOffers(const Machine& machine, const std::string& gauges,
                const std::vector<std::string>& accepted, const StopRequest& stop,
                FindResult& result) {
  std::vector<std::size_t> all(result.required.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  result.near_offers.resize(all.size());
  for (const RequiredFile& required : result.required) {
    result.offers.push_back(stop() ? std::vector<Offer>()
                                   : OffersFor(required, result.pool, machine, gauges));
  }
  DropUnfit(machine, all, stop, result);
  const auto same = [&](std::size_t place) { return SameCabinets(result, place, machine.text); };
  OfferRenamed(machine, gauges, same, stop, result);
  FindNearOffers(machine, gauges, stop, result);
  const auto named = [&](std::size_t place) {
    return Accepted(result, place, accepted, machine.text);
  };
  OfferRenamed(machine, gauges, named, stop, result);
}

void InstallBest(const Machine& machine, const std::string& gauges, bool dry_run,
                 const StopRequest& stop, FindResult& result) {
  const auto take = [&](const Candidate& candidate) {
    if (stop()) return false;
    const InstallFault fault =
        dry_run ? InstallFault::None
                : Install(machine, candidate, result.contents.at(&candidate), gauges);
    if (fault == InstallFault::None) {
      result.installed.push_back(Described(candidate, result, machine.text));
    } else {
      result.failed.push_back({&candidate, fault});
    }
    return fault == InstallFault::None;
  };
  ForEachChoice(result.required, result.offers, machine.text, take);
}

std::string LocationText(std::string path, const std::vector<std::string>& inside) {
  for (const std::string& entry : inside) path += " > " + entry;
  return path;
}

std::string FaultText(InstallFault fault) {
  switch (fault) {
    case InstallFault::NameTaken:
      return "Gauges has a file of that name";
    case InstallFault::CannotRead:
      return "it has changed or cannot be read";
    default:
      return "it could not be copied";
  }
}

std::string ChoiceText(const InstalledFile& file) {
  if (file.others == 0) return {};
  const std::string of_all = " of " + std::to_string(file.others + 1) + " with that name";
  switch (file.advantage.value_or(Advantage::FirstMet)) {
    case Advantage::ExactName:
    case Advantage::NotRenamed:
      return "the one" + of_all + " that was not renamed";
    case Advantage::MoreEntries:
      return "the one" + of_all + " with most of the gauges";
    case Advantage::Newer:
      return "the newest" + of_all;
    case Advantage::FirstMet:
      return "one" + of_all;
  }
  return {};
}

}  // namespace panelkit
