// What candidates really are: their content read, and judged.
#pragma once

#include <cstdint>
#include <map>
#include <string_view>
#include <vector>

#include "platform/machine.h"
#include "search/candidate_pool.h"
#include "search/candidate_search.h"

namespace panelkit {

/// What the reading of candidates showed.
struct ContentCheck {
  /// A number for the content of each that is what its name says; other contents have another one.
  std::map<const Candidate*, std::uint64_t> contents;
  std::vector<PassedOver> unfit;  ///< The others: gauge files that are none, or cannot be read.
};

/// The number for a content of these bytes.
std::uint64_t HashOf(std::string_view bytes);

/// Reads these candidates, each archive once.
ContentCheck CheckContents(const Machine& machine, const std::vector<const Candidate*>& candidates);

}  // namespace panelkit
