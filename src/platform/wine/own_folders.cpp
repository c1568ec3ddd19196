#include "platform/wine/own_folders.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <string_view>

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

std::string UserDownloadFolder() {
  const std::string home = HomeFolder();
  std::string folder = home + "/Downloads";
  const std::string config = AbsolutePathIn("XDG_CONFIG_HOME");
  std::ifstream notes((config.empty() ? home + "/.config" : config) + "/user-dirs.dirs");
  constexpr std::string_view kBegin = "XDG_DOWNLOAD_DIR=\"";
  constexpr std::string_view kHome = "$HOME";
  for (std::string line; std::getline(notes, line);) {
    if (!line.starts_with(kBegin) || !line.ends_with('"')) continue;
    folder = line.substr(kBegin.size(), line.size() - kBegin.size() - 1);
    if (folder.starts_with(kHome)) folder.replace(0, kHome.size(), home);
  }
  const auto status = StatusOf(folder);
  return status && S_ISDIR(status->st_mode) ? folder : std::string();
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
