// What candidates really are: their content read, and judged.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string_view>
#include <vector>

#include "gauges/gauge_mover.h"
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

/// Told of a candidate, and of its content or why there is none.
using OnContent = std::function<void(const Candidate& candidate, const ArchiveContent& content)>;

/// Reads these candidates, each archive once, and tells `take` of each of them once. `stop` is
/// asked at each file and entry; once it asks for the end, the rest is left out.
void ReadCandidates(const Machine& machine, const std::vector<const Candidate*>& candidates,
                    const StopRequest& stop, const OnContent& take);

/// The number for a content of these bytes.
std::uint64_t HashOf(std::string_view bytes);

/// Reads and judges these candidates; those left out, as above, are in neither list.
ContentCheck CheckContents(const Machine& machine, const std::vector<const Candidate*>& candidates,
                           const StopRequest& stop);

}  // namespace panelkit
