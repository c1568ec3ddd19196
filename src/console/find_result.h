// What find came to, as data: computed first, then printed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "console/command_line.h"
#include "console/command_results.h"
#include "platform/local_machine.h"
#include "search/candidate_search.h"
#include "search/offers.h"

namespace panelkit {

/// What find found and installed. Pointers lead into `pool`.
struct FindResult {
  explicit FindResult(const Text& text) : pool(text) {}

  struct Failure {
    const Candidate* candidate;
    InstallFault fault;
  };

  CandidatePool pool;
  std::string gauges;                  ///< The folder to install to, as a Windows path.
  std::vector<RequiredFile> required;  ///< What was missing at first.
  std::vector<PassedOver> passed_over;
  std::vector<const Candidate*> installed;  ///< Of a dry run, what would be.
  std::vector<Failure> failed;
  std::optional<std::vector<RequiredFile>> still_required;  ///< After an installation.
  bool is_interrupted = false;  ///< By Ctrl-C; what was not done by then was not begun.
  Notes notes;
};

FindResult Find(LocalMachine& machine, const CommandLine& line, const std::string& simulator);

/// Where a candidate or something passed over lies: the native path, then the entries in it, with
/// " > " between.
std::string LocationOf(const LocalMachine& machine, const std::string& path,
                       const std::vector<std::string>& inside);

/// Why a candidate was not installed, as the end of a sentence.
std::string WordsOf(InstallFault fault);

/// The result as text: the required files with the candidates for each, the best first; the names
/// of those that have none; what was passed over; what was, or would be, installed; what is missing
/// then.
std::string TextOf(LocalMachine& machine, const CommandLine& line, const FindResult& result);

}  // namespace panelkit
