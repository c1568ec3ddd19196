#include "platform/wine/folder_index.h"

#include <algorithm>

#include "platform/wine/letter_case.h"
#include "platform/wine/native_file.h"

namespace panelkit {

namespace {

constexpr std::size_t kMostFolders = 256;

}  // namespace

FolderIndex::Folder FolderIndex::Read(const std::string& folder, const struct stat& status) {
  Folder read{FolderState(status), {}};
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
  if (known == folders_.end() || !known->second.state.StillHolds(*status)) {
    if (folders_.size() >= kMostFolders) folders_.clear();
    known = folders_.insert_or_assign(folder, Read(folder, *status)).first;
  }
  const auto found = known->second.by_lowered_name.find(Lowered(name));
  return found == known->second.by_lowered_name.end() ? std::vector<std::string>{} : found->second;
}

}  // namespace panelkit
