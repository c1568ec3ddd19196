#include "platform/wine/folder_reader.h"

#include <dirent.h>

#include <cerrno>
#include <memory>

namespace panelkit {

namespace {

struct CloseFolder {
  void operator()(DIR* folder) const { closedir(folder); }
};

}  // namespace

std::optional<std::vector<FolderEntry>> ReadFolder(const std::string& native_path) {
  const std::unique_ptr<DIR, CloseFolder> folder(opendir(native_path.c_str()));
  if (!folder) return std::nullopt;
  std::vector<FolderEntry> entries;
  for (;;) {
    errno = 0;
    const dirent* const entry = readdir(folder.get());
    if (!entry) break;
    FolderEntry found{entry->d_name, entry->d_type};
    if (found.name != "." && found.name != "..") entries.push_back(std::move(found));
  }
  if (errno != 0) return std::nullopt;
  return entries;
}

}  // namespace panelkit
