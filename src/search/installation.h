// Bringing one candidate into Gauges.
#pragma once

#include <string>

#include "platform/machine.h"
#include "search/candidate_pool.h"

namespace panelkit {

/// Why a candidate could not be brought into Gauges.
enum class InstallFault {
  None,
  NameTaken,   ///< Gauges has a file of that name.
  CannotRead,  ///< The candidate, or the archive that holds it, is not what it was.
  CannotCopy,
};

/// Copies a candidate into the folder `gauges` under its own plain name, never over a file that is
/// there or that another program brings there meanwhile: by the lock of that folder, as every move
/// takes it. A kill at any moment leaves no half copied gauge.
InstallFault Install(const Machine& machine, const Candidate& candidate, const std::string& gauges);

}  // namespace panelkit
