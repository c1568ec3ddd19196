// Folder listings of WindowsFiles.
#include <windows.h>

#include <algorithm>

#include "platform/windows/files.h"
#include "platform/windows/paths.h"
#include "platform/windows/wide.h"
#include "text/matching.h"

namespace panelkit::windows {
namespace {

/// An entry with the key that listings are ordered by: "." and ".." first.
struct Entry {
  std::string upper;
  ListedEntry listed;

  bool IsDots() const { return listed.name == "." || listed.name == ".."; }
  bool operator<(const Entry& other) const {
    if (IsDots() != other.IsDots()) return IsDots();
    return upper != other.upper ? upper < other.upper : listed.name < other.listed.name;
  }
};

class Search {
 public:
  explicit Search(const std::wstring& pattern)
      : handle_(FindFirstFileW(pattern.c_str(), &found_)) {}
  ~Search() {
    if (handle_ != INVALID_HANDLE_VALUE) FindClose(handle_);
  }
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

  bool IsOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
  const WIN32_FIND_DATAW& Found() const { return found_; }
  bool Next() { return FindNextFileW(handle_, &found_) != 0; }

 private:
  WIN32_FIND_DATAW found_{};
  HANDLE handle_;
};

bool IsWanted(const WIN32_FIND_DATAW& found, const Entry& entry, ListedEntries entries) {
  if (entry.listed.is_folder && entries == ListedEntries::PlainFiles) return false;
  // The two dot entries carry the attributes of the folders that they stand for.
  return entry.IsDots() ||
         (found.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) == 0;
}

}  // namespace

std::optional<std::vector<ListedEntry>> WindowsFiles::List(std::string_view pattern,
                                                           ListedEntries entries) const {
  const std::size_t name_start = pattern.find_last_of("\\/") + 1;
  const std::string upper_pattern = text_.Upper(pattern.substr(name_start));
  const std::wstring folder = FilePath(std::string(pattern.substr(0, name_start)) + ".");
  if (folder.empty()) return std::nullopt;

  // All entries are asked for: a search by "*.gau" would also compare short names.
  Search search(folder + (folder.ends_with(L'\\') ? L"*" : L"\\*"));
  std::vector<Entry> found;
  if (!search.IsOpen()) {
    // The root of an empty drive has no entries at all, not even ".".
    if (GetLastError() != ERROR_FILE_NOT_FOUND) return std::nullopt;
  } else {
    do {
      Entry entry;
      entry.listed = {Utf8(search.Found().cFileName),
                      (search.Found().dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0};
      if (!IsWanted(search.Found(), entry, entries)) continue;
      entry.upper = text_.Upper(entry.listed.name);
      if (MatchesWildcard(upper_pattern, entry.upper)) found.push_back(std::move(entry));
    } while (search.Next());
    if (GetLastError() != ERROR_NO_MORE_FILES) return std::nullopt;
  }

  std::sort(found.begin(), found.end());
  std::vector<ListedEntry> listed;
  listed.reserve(found.size());
  for (Entry& entry : found) listed.push_back(std::move(entry.listed));
  return listed;
}

}  // namespace panelkit::windows
