// Folder listings, and the walk over a folder and all below it.
#include <windows.h>

#include <algorithm>

#include "platform/windows/native_file.h"
#include "platform/windows/paths.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_machine.h"
#include "text/matching.h"

namespace panelkit::windows {
namespace {

/// The entries of a folder, given with its closing backslash, in the disk's order, mostly with "."
/// and ".." among them; nullopt if it is absent or cannot be read to its end.
std::optional<std::vector<WIN32_FIND_DATAW>> EntriesOf(const std::string& folder) {
  const std::wstring path = FilePath(folder + ".");
  if (path.empty()) return std::nullopt;
  auto entries = Find(path + (path.ends_with(L'\\') ? L"*" : L"\\*"));
  // The root of an empty drive has no entries at all, not even ".".
  if (!entries && GetLastError() == ERROR_FILE_NOT_FOUND) entries.emplace();
  return entries;
}

bool IsDots(std::string_view name) {
  return name == "." || name == "..";
}

/// An entry with the key that listings are ordered by: "." and ".." first.
struct Listed {
  std::string upper;
  ListedEntry entry;

  bool operator<(const Listed& other) const {
    if (IsDots(entry.name) != IsDots(other.entry.name)) return IsDots(entry.name);
    return upper != other.upper ? upper < other.upper : entry.name < other.entry.name;
  }
};

std::uint64_t Joined(DWORD high, DWORD low) {
  return std::uint64_t{high} << 32U | low;
}

/// Seconds since 1970 of a count of 100 nanoseconds since 1601.
std::int64_t UnixTime(const ::FILETIME& time) {
  constexpr std::int64_t kStepsInSecond = 10'000'000;
  constexpr std::int64_t kFrom1601To1970 = 11'644'473'600;
  return static_cast<std::int64_t>(Joined(time.dwHighDateTime, time.dwLowDateTime)) /
             kStepsInSecond -
         kFrom1601To1970;
}

/// A walk under way; `pending` is a stack of the folders that are still to be visited.
struct TreeWalk {
  FolderVisitor& visitor;
  std::vector<std::string> pending;
  std::size_t files = 0;
  std::size_t unreadable = 0;

  void Visit(const std::string& folder);
};

void TreeWalk::Visit(const std::string& folder) {
  const auto found = EntriesOf(folder + "\\");
  if (!found) {
    ++unreadable;
    return;
  }
  std::vector<std::pair<std::string, const WIN32_FIND_DATAW*>> entries;
  for (const WIN32_FIND_DATAW& entry : *found) entries.emplace_back(Utf8(entry.cFileName), &entry);
  std::sort(entries.begin(), entries.end());
  const std::size_t first = pending.size();
  for (const auto& [name, entry] : entries) {
    const std::string path = folder + "\\" + name;
    if (Has(entry->dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY)) {
      // A junction may lead back to where it stands.
      if (!IsLink(*entry) && !IsDots(name)) pending.push_back(path);
    } else {
      ++files;
      if (visitor.Wants(name)) {
        visitor.OnFile({path, Joined(entry->nFileSizeHigh, entry->nFileSizeLow),
                        UnixTime(entry->ftLastWriteTime)});
      }
    }
  }
  std::reverse(pending.begin() + static_cast<std::ptrdiff_t>(first), pending.end());
}

}  // namespace

std::optional<std::vector<ListedEntry>> WindowsFiles::List(std::string_view pattern,
                                                           ListedEntries entries) const {
  const std::size_t name_start = pattern.find_last_of("\\/") + 1;
  const std::string upper_pattern = text_.Upper(pattern.substr(name_start));
  // All entries are asked for: a search by "*.gau" would also compare short names.
  const auto found = EntriesOf(std::string(pattern.substr(0, name_start)));
  if (!found) return std::nullopt;

  std::vector<Listed> matching;
  for (const WIN32_FIND_DATAW& entry : *found) {
    const bool is_folder = Has(entry.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
    if (is_folder && entries == ListedEntries::PlainFiles) continue;
    std::string name = Utf8(entry.cFileName);
    // The two dot entries carry the attributes of the folders that they stand for.
    if (Has(entry.dwFileAttributes, kHiddenOrSystem) && !IsDots(name)) continue;
    std::string upper = text_.Upper(name);
    if (MatchesWildcard(upper_pattern, upper)) {
      matching.push_back({std::move(upper), {std::move(name), is_folder}});
    }
  }
  std::sort(matching.begin(), matching.end());
  std::vector<ListedEntry> listed;
  listed.reserve(matching.size());
  for (Listed& match : matching) listed.push_back(std::move(match.entry));
  return listed;
}

WindowsFolderWalk::Outcome WindowsFolderWalk::Walk(std::string_view folder,
                                                   FolderVisitor& visitor) const {
  if (!Has(AttributesOf(FilePath(folder)), FILE_ATTRIBUTE_DIRECTORY)) return {false, 0};
  TreeWalk walk{visitor, {std::string(folder.substr(0, folder.find_last_not_of("\\/") + 1))}};
  while (!walk.pending.empty()) {
    const std::string next = std::move(walk.pending.back());
    walk.pending.pop_back();
    const auto step = visitor.OnFolder(next, walk.files);
    if (step == FolderVisitor::Step::End) break;
    if (step == FolderVisitor::Step::Enter) walk.Visit(next);
  }
  return {true, walk.unreadable};
}

}  // namespace panelkit::windows
