// Which candidates would help which required file.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/machine.h"
#include "search/candidate_pool.h"
#include "search/required_files.h"

namespace panelkit {

/// A candidate for one required file.
struct Offer {
  const Candidate* candidate = nullptr;
  bool has_exact_name = false;            ///< Its name is the required one, case ignored.
  bool name_is_taken = false;             ///< Gauges has a file of the candidate's name.
  std::vector<std::string_view> entries;  ///< Which of the file's missing entries it satisfies.
};

/// Why one offer comes before another, the weightiest reason first.
enum class Advantage {
  ExactName,    ///< Its name is the required one.
  NotRenamed,   ///< It has that name already.
  MoreEntries,  ///< It satisfies more entries.
  Newer,
  FirstMet,  ///< None of these.
};

/// The candidates that satisfy at least one missing entry of `required` if they come into the
/// folder `gauges`, the best first, by Advantage. `required` and `pool` must outlive the offers.
std::vector<Offer> OffersFor(const RequiredFile& required, const CandidatePool& pool,
                             const Machine& machine, const std::string& gauges);

/// By what `a` comes before `b`.
Advantage AdvantageOver(const Offer& a, const Offer& b);

/// Offers the best candidates for all required files to `take`, one after the other: none
/// whose name is taken in Gauges, each candidate once, as many as it takes to satisfy the entries
/// that can be. If `take` answers false, the next best is offered. `offers` has those of each
/// required file.
void ForEachChoice(const std::vector<RequiredFile>& required,
                   const std::vector<std::vector<Offer>>& offers, const Text& text,
                   const std::function<bool(const Candidate&)>& take);

}  // namespace panelkit
