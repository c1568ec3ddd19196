// A search for missing gauges in places that the user has named, from the question to the offers.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/machine.h"
#include "search/candidate_search.h"
#include "search/deeds.h"
#include "search/find_result.h"

namespace panelkit {

/// What a search has come to.
struct Look {
  explicit Look(const Text& text) : found(text) {}

  FindResult found;
  std::vector<std::string> absent;  ///< Places that are not there.
  bool stopped = false;             ///< There may be more to find.
};

/// Fills the pool of `look` with what lies in these places (Windows paths of folders and files).
/// `on_progress` is as in CandidateSearch; after its end no place is begun. FindOffers is the next
/// step.
void LookThrough(const Machine& machine, const std::vector<std::string>& places,
                 const CandidateSearch::OnProgress& on_progress, Look& look);

/// For how many of the required files something is offered.
std::size_t CountOfFound(const FindResult& found);

/// For how many something is, or would be, installed.
std::size_t CountOfHelped(const FindResult& found);

/// An offer for `required`, as one line for the user: where it lies on this machine, its size and
/// date, and how it differs from the file that is asked for.
std::string OfferText(const Machine& machine, const RequiredFile& required, const Offer& offer);

/// For which aircraft a candidate was installed, and why not another one: " for Alpha, Beta (the
/// newest of 2 with that name)".
std::string PurposeText(const InstalledFile& file);

/// A candidate with a name similar to that of `required`, and the command that installs it.
std::string NearText(const Machine& machine, const CommandStyle& style,
                     const RequiredFile& required, const NearOffer& near);

/// What was passed over, and why, as one line for the user.
std::string PassedOverText(const Machine& machine, const PassedOver& what);

}  // namespace panelkit
