// The files that panels require and the simulator lacks, with the entries that ask for them.
#pragma once

#include <string>
#include <vector>

#include "gauges/gauge_report.h"

namespace panelkit {

/// One file of the probe's summary.
struct RequiredFile {
  std::string name;                  ///< The file part, without an extension.
  std::vector<std::string> entries;  ///< The missing panel entries of that file part, each once.
};

/// The missing files of a probe's report, in the order of its summary.
std::vector<RequiredFile> RequiredFilesOf(const GaugeReport& report);

}  // namespace panelkit
