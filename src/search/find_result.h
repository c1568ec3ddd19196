// What a search for missing gauges found, and what its installation brought, as data.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "gauges/gauge_mover.h"
#include "platform/machine.h"
#include "search/candidate_search.h"
#include "search/offers.h"

namespace panelkit {

/// Pointers lead into `pool`.
struct FindResult {
  explicit FindResult(const Text& text) : pool(text) {}

  struct Failure {
    const Candidate* candidate;
    InstallFault fault;
  };

  CandidatePool pool;
  std::vector<RequiredFile> required;  ///< What was missing at first.
  std::vector<PassedOver> passed_over;
  std::vector<const Candidate*> installed;  ///< Of a dry run, what would be.
  std::vector<Failure> failed;
  std::optional<std::vector<RequiredFile>> still_required;  ///< After an installation.
};

/// Installs the best candidates for the required files in the folder `gauges` until `stop` asks for
/// the end; a dry run only notes them.
void InstallBest(const Machine& machine, const std::string& gauges, bool dry_run,
                 const StopRequest& stop, FindResult& result);

/// Where a candidate or something passed over lies: the path of the file, then the entries in it,
/// with " > " between.
std::string LocationText(std::string path, const std::vector<std::string>& inside);

/// Why a candidate was not installed, as the end of a sentence.
std::string FaultText(InstallFault fault);

}  // namespace panelkit
