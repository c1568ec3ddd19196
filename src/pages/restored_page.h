// What restoring gauges came to: as sections of names, and as a page.
#pragma once

#include <string>
#include <vector>

#include "gauges/gauge_mover.h"

namespace panelkit {

/// A heading and the names below it.
struct NameSection {
  std::string heading;
  std::vector<std::string> names;
};

/// What came back to `gauges`, then what did not and why; what failed is told elsewhere. Sections
/// without names are left out.
std::vector<NameSection> RestoredSections(const RestoreOutcome& files, const std::string& gauges);

/// The page of it; `folders` are as they are to be shown.
std::string RestoredPage(const RestoreOutcome& files, const GaugeFolders& folders);

}  // namespace panelkit
