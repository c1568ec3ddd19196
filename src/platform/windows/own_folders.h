// Where the program keeps its own files.
#pragma once

#include <string>

namespace panelkit::windows {

/// "Downloads" in the user's profile or, where Windows has none, the desktop; empty if it is not
/// there.
std::string UserDownloadFolder();

/// "%LOCALAPPDATA%\Panelkit" (on XP "...\Local Settings\Application Data\Panelkit"), without a
/// closing backslash, whether or not it is there. Empty for a user without such a place.
std::string UserFolderPath();

/// The same folder, made if it is missing. Empty if it cannot be made.
std::string UserFolder();

/// Whether this process can make files in a folder. Not where Windows would keep them for this user
/// in another place (virtualisation.h).
bool CanWriteTo(const std::string& folder);

/// Copies the pictures of the pages from the program's folder to `folder`, where the pages lie; one
/// that is there, or missing here, is passed over.
void LayPicturesBeside(const std::string& folder);

}  // namespace panelkit::windows
