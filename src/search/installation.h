// Bringing one candidate into Gauges.
#pragma once

#include <cstdint>
#include <string>

#include "platform/machine.h"
#include "search/candidate_pool.h"

namespace panelkit {

/// Why a candidate could not be brought into Gauges.
enum class InstallFault {
  None,
  NameTaken,   ///< Gauges has a file of that name.
  CannotRead,  ///< The candidate is not what it was, or cannot be read.
  CannotCopy,
};

/// Copies a candidate, if its content is still that of the number `content` (HashOf), into the
/// folder `gauges` under its own plain name, never over a file that is there or that another
/// program brings there meanwhile: by the lock of that folder, as every move takes it. A kill at
/// any moment leaves no half copied gauge.
InstallFault Install(const Machine& machine, const Candidate& candidate, std::uint64_t content,
                     const std::string& gauges);

}  // namespace panelkit
