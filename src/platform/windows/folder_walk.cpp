#include "platform/windows/folder_walk.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "platform/windows/paths.h"
#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

struct Entry {
  std::string name;
  DWORD attributes;
  std::uint64_t size;
  std::int64_t modified;
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

/// The entries of a folder in byte order; nullopt if it cannot be read.
std::optional<std::vector<Entry>> EntriesOf(const std::string& folder) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW((FilePath(folder + "\\.") + L"\\*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return std::nullopt;
  std::vector<Entry> entries;
  do {
    entries.push_back({Utf8(found.cFileName), found.dwFileAttributes,
                       Joined(found.nFileSizeHigh, found.nFileSizeLow),
                       UnixTime(found.ftLastWriteTime)});
  } while (FindNextFileW(search, &found) != 0);
  FindClose(search);
  std::sort(entries.begin(), entries.end(),
            [](const Entry& a, const Entry& b) { return a.name < b.name; });
  return entries;
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
  const auto entries = EntriesOf(folder);
  if (!entries) {
    ++unreadable;
    return;
  }
  const std::size_t first = pending.size();
  for (const Entry& entry : *entries) {
    const std::string path = folder + "\\" + entry.name;
    if ((entry.attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      // A junction may lead back to where it stands.
      const bool is_link = (entry.attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
      if (!is_link && entry.name != "." && entry.name != "..") pending.push_back(path);
    } else {
      ++files;
      if (visitor.Wants(entry.name)) visitor.OnFile({path, entry.size, entry.modified});
    }
  }
  std::reverse(pending.begin() + static_cast<std::ptrdiff_t>(first), pending.end());
}

}  // namespace

FolderWalk::Outcome WindowsFolderWalk::Walk(std::string_view folder, FolderVisitor& visitor) const {
  const std::wstring root = FilePath(folder);
  const DWORD attributes =
      root.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(root.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0) {
    return {false, 0};
  }
  TreeWalk walk{visitor, {std::string(folder.substr(0, folder.find_last_not_of("\\/") + 1))}};
  while (!walk.pending.empty() && visitor.OnFolder(walk.files)) {
    const std::string next = std::move(walk.pending.back());
    walk.pending.pop_back();
    walk.Visit(next);
  }
  return {true, walk.unreadable};
}

}  // namespace panelkit::windows
