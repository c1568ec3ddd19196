#include "platform/wine/listing.h"

#include <dirent.h>

#include <algorithm>
#include <tuple>
#include <utility>

#include "platform/wine/dos_attributes.h"
#include "platform/wine/letter_case.h"
#include "platform/wine/native_file.h"
#include "text/matching.h"

namespace panelkit {

namespace {

constexpr std::chrono::seconds kAttributesHold{1};
constexpr std::size_t kFewEntries = 32;

/// The kind of an entry, links followed: DT_REG, DT_DIR or another.
unsigned char TypeOf(const DirectoryEntry& entry, const std::string& folder) {
  if (entry.type != DT_LNK) return entry.type;
  const auto status = StatusOf(folder + '/' + entry.name);
  if (!status) return DT_UNKNOWN;
  return static_cast<unsigned char>(IFTODT(status->st_mode));
}

/// Orders entries by their upper-cased names.
void Sort(std::vector<DirectoryEntry>& entries) {
  std::vector<std::pair<std::string, DirectoryEntry>> keyed;
  keyed.reserve(entries.size());
  for (DirectoryEntry& entry : entries) keyed.emplace_back(Uppered(entry.name), std::move(entry));
  std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) {
    return std::tie(a.first, a.second.name) < std::tie(b.first, b.second.name);
  });
  std::transform(keyed.begin(), keyed.end(), entries.begin(),
                 [](auto& pair) { return std::move(pair.second); });
}

}  // namespace

std::optional<std::vector<ListedEntry>> Listing::List(const std::string& folder,
                                                      std::string_view pattern,
                                                      ListedEntries entries) {
  if (!Refresh(folder)) return std::nullopt;
  const std::string wanted = Lowered(pattern);
  const bool with_folders = entries == ListedEntries::FilesAndFolders;
  std::vector<ListedEntry> listed;
  for (const char* name : {".", ".."}) {
    if (with_folders && MatchesWildcard(wanted, name)) listed.push_back({name, true});
  }
  for (auto& [entry, is_hidden] : entries_) {
    if (!MatchesWildcard(wanted, Lowered(entry.name))) continue;
    const unsigned char kind = TypeOf(entry, folder);
    if (kind != DT_REG && (kind != DT_DIR || !with_folders)) continue;
    if (!is_hidden) is_hidden = IsHiddenOrSystem(folder + '/' + entry.name);
    if (!*is_hidden) listed.push_back({entry.name, kind == DT_DIR});
  }
  return listed;
}

/// False if the folder cannot be read.
bool Listing::Refresh(const std::string& folder) {
  const auto now = std::chrono::steady_clock::now();
  if (folder == folder_ && state_) {
    const auto status = StatusOf(folder);
    if (status && state_->StillHolds(*status)) {
      if (now - read_at_ < kAttributesHold) return true;
      for (Entry& entry : entries_) entry.is_hidden.reset();
      read_at_ = now;
      return true;
    }
  }
  state_.reset();
  entries_.clear();
  const timespec since = TimeOfStamps();
  auto found = ReadDirectory(folder);
  if (!found) return false;
  std::erase_if(*found, [](const DirectoryEntry& entry) { return !CanBeNamed(entry.name); });
  Sort(*found);
  entries_.reserve(found->size());
  for (DirectoryEntry& entry : *found) entries_.push_back({std::move(entry)});
  // To ask for the state of a small folder takes longer than to read it once more.
  const auto status = entries_.size() < kFewEntries ? std::nullopt : StatusOf(folder);
  if (status) state_.emplace(*status, since);
  folder_ = folder;
  read_at_ = now;
  return true;
}

}  // namespace panelkit
