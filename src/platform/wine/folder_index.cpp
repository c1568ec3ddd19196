#include "platform/wine/folder_index.h"

#include <algorithm>
#include <ctime>

#include "platform/wine/folder_reader.h"
#include "platform/wine/letter_case.h"
#include "platform/wine/native_file.h"

namespace panelkit {

namespace {

constexpr std::size_t kMostFolders = 256;

/// Whether any change from now on gives the folder another time stamp. Stamps move in steps: of at
/// most 10 milliseconds, or of 2 seconds on FAT, where they are whole seconds.
bool ShowsChanges(const struct stat& status) {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const auto age = static_cast<double>(now.tv_sec - status.st_mtim.tv_sec) +
                   static_cast<double>(now.tv_nsec - status.st_mtim.tv_nsec) / 1e9;
  return age > (status.st_mtim.tv_nsec == 0 ? 3.0 : 0.05);
}

}  // namespace

FolderIndex::Folder FolderIndex::Read(const std::string& folder, const struct stat& status) {
  Folder read{status, ShowsChanges(status), {}};
  for (auto& entry : ReadFolder(folder).value_or(std::vector<FolderEntry>{})) {
    read.by_lowered_name[Lowered(entry.name)].push_back(std::move(entry.name));
  }
  for (auto& [lowered, names] : read.by_lowered_name) std::sort(names.begin(), names.end());
  return read;
}

std::vector<std::string> FolderIndex::Matches(const std::string& folder, std::string_view name) {
  const auto status = StatusOf(folder);
  if (!status || !S_ISDIR(status->st_mode)) return {};
  auto known = folders_.find(folder);
  if (known == folders_.end() || !known->second.shows_changes ||
      !IsSameState(known->second.status, *status)) {
    if (folders_.size() >= kMostFolders) folders_.clear();
    known = folders_.insert_or_assign(folder, Read(folder, *status)).first;
  }
  const auto found = known->second.by_lowered_name.find(Lowered(name));
  return found == known->second.by_lowered_name.end() ? std::vector<std::string>{} : found->second;
}

}  // namespace panelkit
