// The files that an installation has written, and taking them out of Gauges again.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/files.h"
#include "search/find_result.h"

namespace panelkit {

/// A file of Gauges as the installation left it.
struct WrittenFile {
  std::string name;
  std::uint64_t content = 0;  ///< As HashOf.
};

/// What stands in the folder `gauges` for what has just been installed there.
std::vector<WrittenFile> WrittenFiles(const Files& files, const std::string& gauges,
                                      const std::vector<InstalledFile>& installed);

/// Names of files.
struct TakenOut {
  std::vector<std::string> removed;
  std::vector<std::string> kept;  ///< They have changed, or could not be removed.
};

/// Removes from `gauges` each of these files that still has the bytes that were written.
TakenOut TakeOut(Files& files, const std::string& gauges, const std::vector<WrittenFile>& written);

}  // namespace panelkit
