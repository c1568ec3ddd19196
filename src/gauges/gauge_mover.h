// Moving gauges between the simulator and the archive so that a kill at any moment loses nothing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/files.h"

namespace panelkit {

/// The two folders that gauges move between, without closing backslashes.
struct GaugeFolders {
  std::string gauges;
  std::string spare;
};

/// `FSPath`\Gauges and `AppFolder`\SpareGauges.
GaugeFolders FoldersOf(const std::string& FSPath, const std::string& AppFolder);

/// Asked before each file is moved; true ends the work with that file untouched. An empty function
/// never does.
using StopRequest = std::function<bool()>;

/// Names of files that were moved, of those that could not be moved and stayed, whole, and of those
/// left untouched after a stop.
struct MoveOutcome {
  std::vector<std::string> moved;
  std::vector<std::string> stayed;
  std::vector<std::string> left;
};

/// The file name in `gauges` that a spare entry stands for: a gauge file before a cabinet; empty
/// where neither is there.
std::string SpareFileName(const Files& files, const std::string& gauges, const std::string& entry);

/// Moves the files of SpareFiles into the archive, which is made if missing; copies there are
/// replaced. Removes what a killed run left half copied.
MoveOutcome ArchiveGauges(Files& files, const GaugeFolders& folders,
                          const std::vector<std::string>& SpareFiles, const StopRequest& stop);

/// What became of the files that were to come back.
struct RestoreOutcome {
  std::vector<std::string> restored;
  std::vector<std::string> already_there;  ///< A file of that name stands in Gauges.
  std::vector<std::string> failed;         ///< In no archive, or it could not be moved.
  bool stopped = false;                    ///< Files were left after a stop.
};

/// The name that stands for every archived gauge.
inline constexpr const char* kEveryGauge = "*";

/// Brings the archived files of these names back if no file of that name stands in Gauges.
/// `folders` holds one pair for each archive, the one to prefer first. A name that does not end in
/// a gauge's extension stands for gauge file and cabinet; "*" and "?" may stand in it.
RestoreOutcome RestoreGauges(Files& files, const std::vector<GaugeFolders>& folders,
                             const std::vector<std::string>& names, const StopRequest& stop);

}  // namespace panelkit
