// The files that panels require and the simulator lacks, with the entries that ask for them.
#pragma once

#include <string>
#include <unordered_set>
#include <vector>

#include "gauges/gauge_report.h"
#include "platform/text.h"

namespace panelkit {

/// One file of the probe's summary.
struct RequiredFile {
  std::string name;                  ///< The file part, without an extension.
  std::vector<std::string> entries;  ///< The missing panel entries of that file part, each once.
  std::vector<std::vector<std::string>> aircraft = {};  ///< Of each entry: whose panels name it.
};

/// The missing files of a probe's report, in the order of its summary.
std::vector<RequiredFile> RequiredFilesOf(const GaugeReport& report);

/// The file parts, lowered, of all entries that panels name, installed or not.
std::unordered_set<std::string> NamedFileParts(const GaugeReport& report, const Text& text);

}  // namespace panelkit
