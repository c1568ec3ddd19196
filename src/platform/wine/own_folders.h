// Where the program's own files lie on this disk.
#pragma once

#include <string>

namespace panelkit {

/// Native folders of the program's own files, without closing slashes.
struct OwnFolders {
  std::string program;   ///< The executable's folder.
  std::string pictures;  ///< The folder of the pictures that came with the program.
  std::string user;      ///< The user's folder for them, there or not; empty if there is no home.
  std::string app;       ///< The folder for page files, backups and the archive: one of the above.
  std::string origin;    ///< How `app` was chosen, as one line for the user.
};

/// The folders of a program in the folder `program`. It is installed if "../share/panelkit" holds
/// pictures; it keeps its files in its own folder if it is not and the user may write there, else
/// in "panelkit" below XDG_DATA_HOME (~/.local/share if that is unset or relative).
OwnFolders OwnFoldersOf(const std::string& program);

/// Makes the folder and those above it that are missing, open to this user alone as XDG asks for
/// folders below XDG_DATA_HOME. False if it is not there at the end.
bool MakePrivateFolder(const std::string& folder);

/// $XDG_DATA_HOME, or its default; empty if there is no home.
std::string UserDataFolder();

/// The folder that the desktop's programs download to, as xdg-user-dirs notes it, or else
/// "Downloads" in the user's home; empty if it is not there.
std::string UserDownloadFolder();

/// The user's home; "/" if the system knows none.
std::string HomeFolder();

}  // namespace panelkit
