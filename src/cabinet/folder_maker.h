// Paths of extracted files, and the making of their folders.
#pragma once

#include <string>

#include "platform/files.h"

namespace panelkit::modGauges {

/// A name split at its last backslash.
struct SplitName {
  std::string Folder;  ///< Up to and including the backslash; empty if the name has none.
  std::string File;    ///< After the backslash.
};

SplitName SplitPath(const std::string& FullName);

/// `Path`, with a backslash added unless it ends in one.
std::string AddBackslash(const std::string& Path);

/// Makes a folder and those missing above it. False for the empty path, and if a folder below the
/// lowest one that is there could not be made. True if the folder was made or is there already;
/// also if only the last folder was missing and the system refused it, which it does not tell from
/// one that is there. What is then written into it fails with an error of its own. Removes one
/// trailing backslash from `Path`.
bool MakeFolderPath(Files& files, std::string& Path);

}  // namespace panelkit::modGauges
