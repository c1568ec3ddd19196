// Moving gauges between the simulator and the archive so that a kill at any moment loses nothing.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "gauges/spare_ledger.h"
#include "platform/files.h"
#include "platform/text.h"

namespace panelkit {

/// The two folders that gauges move between, without closing backslashes.
struct GaugeFolders {
  std::string gauges;
  std::string spare;
};

/// `FSPath`\Gauges and `AppFolder`\SpareGauges.
GaugeFolders FoldersOf(const std::string& FSPath, const std::string& AppFolder);

/// Asked before each file is moved; true ends the work with that file untouched. Where files are
/// moved, an empty function never does.
using StopRequest = std::function<bool()>;

/// Names of files that were moved, of those that could not be moved and stayed, whole, and of those
/// left untouched after a stop.
struct MoveOutcome {
  std::vector<std::string> moved;
  std::vector<std::string> stayed;
  std::vector<std::string> left;
};

/// The name of the file in `gauges` that an entry of SpareFiles stands for: a gauge file, else a
/// cabinet; empty if there is neither.
std::string SpareFileName(const Files& files, const std::string& gauges, const std::string& entry);

/// Moves the files of SpareFiles into the archive, which is created if it is missing. A file of the
/// same name there gives way as soon as the newer one has left Gauges, and stays where that one
/// does; if its bytes are others, it is kept in the archive's folder `Older`. Each move is noted in
/// the archive's ledger before it begins. Finishes, or undoes, what a killed run left half done.
/// Programs that do so at once wait for each other's moves; files that another one has moved are
/// left out of the outcome.
MoveOutcome ArchiveGauges(Files& files, const Text& text, const GaugeFolders& folders,
                          const std::vector<std::string>& SpareFiles, const StopRequest& stop);

/// Copies a gauge file or cabinet into `folder` under `name`, its time stamp kept. A kill at any
/// moment leaves the whole copy there or none under that name. Removes what a killed run left half
/// copied. False, with no copy there, on failure.
bool CopyGauge(Files& files, const std::string& source, const std::string& folder,
               const std::string& name);

/// The outcome of RestoreGauges, by file name.
struct RestoreOutcome {
  std::vector<std::string> restored;
  std::vector<std::string> already_there;  ///< Gauges has a file of that name.
  std::vector<std::string> failed;         ///< In no archive, or it could not be moved.
  /// Left in the archive, since they came from another simulator.
  std::vector<std::string> from_elsewhere;
  bool stopped = false;  ///< Files were left after a stop.
};

/// A file of an archive, with the record of its move; the record is empty if there is none.
struct ArchivedGauge {
  std::string name;
  SpareRecord record;
};

/// The gauge files, then the cabinets, of the archive in the folder `spare`.
std::vector<ArchivedGauge> ArchivedGauges(Files& files, const Text& text, const std::string& spare);

/// What RestoreGauges brings back.
enum class RestoreChoice {
  Own,  ///< What came from this simulator, what has no record, and what is named without "*", "?".
  All,  ///< What came from other simulators, too.
  Older,  ///< Gauges that newer ones of their names have replaced in the archive.
};

/// Restores every archived gauge when given to RestoreGauges.
inline constexpr const char* kEveryGauge = "*";

/// Moves archived files back into Gauges, except those whose name is taken there. `folders` holds
/// one pair for each archive, the one to prefer first. A name that does not end in ".gau" or ".cab"
/// stands for the gauge file and the cabinet of that name; "*" and "?" are wildcards. A file whose
/// move was noted is spelt as it was. Of the older ones, a name stands for the newest, and for the
/// one of that whole name in `Older`.
RestoreOutcome RestoreGauges(Files& files, const Text& text,
                             const std::vector<GaugeFolders>& folders,
                             const std::vector<std::string>& names, RestoreChoice choice,
                             const StopRequest& stop);

}  // namespace panelkit
