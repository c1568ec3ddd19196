// Which candidates would help which required file, and bringing them into Gauges.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/machine.h"
#include "search/candidate_pool.h"
#include "search/candidate_search.h"
#include "search/required_files.h"

namespace panelkit {

/// A candidate for one required file.
struct Offer {
  const Candidate* candidate = nullptr;
  bool has_exact_name = false;            ///< Its name is the required one, case ignored.
  std::vector<std::string_view> entries;  ///< Which of the file's missing entries it satisfies.
};

/// The candidates that satisfy at least one missing entry of `required`, the best first: one of the
/// exact name, then those that are not renamed, then one that satisfies more entries, then the
/// newest. Both arguments must outlive the offers.
std::vector<Offer> OffersFor(const RequiredFile& required, const CandidatePool& pool,
                             const Text& text);

/// Reads all gauge files of `pool` that would be offered for `required`, rejects those that are
/// none or cannot be read whole, and tells why. Each archive is read once.
std::vector<PassedOver> RejectUnfit(const Machine& machine,
                                    const std::vector<RequiredFile>& required, CandidatePool& pool);

/// Why a candidate could not be brought into Gauges.
enum class InstallFault {
  None,
  NameTaken,   ///< Gauges has a file of that name.
  CannotRead,  ///< The candidate, or the archive that holds it, is not what it was.
  CannotCopy,
};

/// Copies a candidate into the folder `gauges` under its own plain name, never over a file that is
/// there. A kill at any moment leaves no half copied gauge.
InstallFault Install(const Machine& machine, const Candidate& candidate, const std::string& gauges);

/// Offers the best candidates for all required files to `take`, one after the other: none
/// whose name is taken in `gauges`, each candidate once, as many as it takes to satisfy the entries
/// that can be. If `take` answers false, the next best is offered.
void ForEachChoice(const std::vector<RequiredFile>& required, const CandidatePool& pool,
                   const Machine& machine, const std::string& gauges,
                   const std::function<bool(const Candidate&)>& take);

}  // namespace panelkit
