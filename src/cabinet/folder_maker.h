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

/// Makes a folder and those missing above it. True if the folder exists afterwards; false for the
/// empty path. Removes one trailing backslash from `Path`.
bool MakeFolderPath(Files& files, std::string& Path);

}  // namespace panelkit::modGauges
