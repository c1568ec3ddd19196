// What a search for missing gauges found, and what its installation brought, as data.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_set>
#include <vector>

#include "gauges/gauge_mover.h"
#include "platform/machine.h"
#include "search/candidate_search.h"
#include "search/content_check.h"
#include "search/installation.h"
#include "search/near_name.h"
#include "search/offers.h"

namespace panelkit {

/// A candidate with a name similar to that of a required file that has no offer.
struct NearOffer {
  const Candidate* candidate;
  Likeness likeness;
  std::string in_the_way;  ///< What Gauges has under the name that it would get; empty if nothing.
};

/// A candidate that was installed.
struct InstalledFile {
  const Candidate* candidate;
  std::vector<std::string> aircraft;  ///< Whose missing gauges it has, each once.
  std::size_t others = 0;  ///< Candidates of its name with other contents, which were not taken.
  std::optional<Advantage> advantage = {};  ///< Why it was taken and not the best of them.
};

/// Pointers lead into `pool`.
struct FindResult {
  explicit FindResult(const Text& text) : pool(text) {}

  struct Failure {
    const Candidate* candidate;
    InstallFault fault;
  };

  CandidatePool pool;
  std::vector<RequiredFile> required;                  ///< What was missing at first.
  std::unordered_set<std::string> named;               ///< As NamedFileParts.
  std::vector<std::vector<Offer>> offers;              ///< For each of `required`, the best first.
  std::vector<std::vector<NearOffer>> near_offers;     ///< For each, the nearest first.
  std::map<const Candidate*, std::uint64_t> contents;  ///< Of what is offered, as ContentCheck.
  std::vector<PassedOver> passed_over;
  std::vector<InstalledFile> installed;  ///< Of a dry run, what would be.
  std::vector<Failure> failed;
  std::optional<std::vector<RequiredFile>> still_required;  ///< After an installation.
};

/// Fills in offers, near offers and contents, once a search has filled the pool: reads what would
/// be offered for the folder `gauges`, and passes over what is no gauge. What has not been read
/// when `stop`, which is asked at each file and entry, asks for the end is not offered. For a
/// required file that `accepted` names, a candidate of a similar name, or the only one there is, is
/// offered under the required name.
void FindOffers(const Machine& machine, const std::string& gauges,
                const std::vector<std::string>& accepted, const StopRequest& stop,
                FindResult& result);

/// Installs the best candidates for the required files in the folder `gauges` until `stop` asks for
/// the end; a dry run only notes them.
void InstallBest(const Machine& machine, const std::string& gauges, bool dry_run,
                 const StopRequest& stop, FindResult& result);

/// Where a candidate or something passed over lies: the path of the file, then the entries in it,
/// with " > " between.
std::string LocationText(std::string path, const std::vector<std::string>& inside);

/// Why a candidate was not installed, as the end of a sentence.
std::string FaultText(InstallFault fault);

/// Why it was taken and not another one: "the newest of 3 with that name"; empty if there was none.
std::string ChoiceText(const InstalledFile& file);

}  // namespace panelkit
