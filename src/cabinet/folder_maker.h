// Paths and folders of extracted files.
#pragma once

#include <string>

#include "platform/files.h"

namespace panelkit::modGauges {

/// The two sides of a name's last backslash.
struct SplitName {
  std::string Folder;  ///< With that backslash; empty where the name has none.
  std::string File;
};

SplitName SplitPath(const std::string& FullName);

/// `Path` with one backslash at its end; the empty path gives "\".
std::string AddBackslash(const std::string& Path);

/// Makes a folder and what is missing above it, from the top down. True when the folder exists at
/// the end; the empty path gives false. Removes one trailing backslash from `Path`.
bool MakeFolderPath(Files& files, std::string& Path);

}  // namespace panelkit::modGauges
