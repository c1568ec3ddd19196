#include "platform/wine/own_folders.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "platform/wine/directory.h"
#include "platform/wine/native_file.h"

namespace panelkit {

namespace {

constexpr mode_t kPrivate = 0700;

std::string AbsolutePathIn(const char* variable) {
  const char* const value = std::getenv(variable);
  return value && *value == '/' ? value : "";
}

bool HoldsPictures(const std::string& folder) {
  const auto entries = ReadDirectory(folder);
  return entries && std::any_of(entries->begin(), entries->end(), [](const DirectoryEntry& entry) {
           return entry.name.ends_with(".gif");
         });
}

bool MayWrite(const std::string& folder) {
  return faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) == 0;
}

}  // namespace

std::string HomeFolder() {
  std::string home = AbsolutePathIn("HOME");
  if (!home.empty()) return home;
  const passwd* const user = getpwuid(getuid());
  return user ? user->pw_dir : "/";
}

std::string UserDataFolder() {
  std::string data = AbsolutePathIn("XDG_DATA_HOME");
  return data.empty() ? HomeFolder() + "/.local/share" : data;
}

OwnFolders OwnFoldersOf(const std::string& program) {
  OwnFolders folders{program, program, UserDataFolder() + "/panelkit", program,
                     "the program's own folder"};
  const std::string shared = FolderOf(program) + "/share/panelkit";
  const bool is_installed = HoldsPictures(shared);
  if (is_installed) folders.pictures = shared;
  if (is_installed || !MayWrite(program)) {
    folders.app = folders.user;
    folders.origin =
        "your own folder, since " + (is_installed ? "the program is installed in " + program
                                                  : "you may not write to " + program);
  }
  return folders;
}

bool MakePrivateFolder(const std::string& folder) {
  if (mkdir(folder.c_str(), kPrivate) != 0 && !StatusOf(folder)) {
    const std::string parent = FolderOf(folder);
    if (parent == folder || !MakePrivateFolder(parent)) return false;
    mkdir(folder.c_str(), kPrivate);
  }
  const auto status = StatusOf(folder);
  return status && S_ISDIR(status->st_mode);
}

}  // namespace panelkit
