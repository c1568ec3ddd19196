#include "platform/wine/path_resolver.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "platform/wine/letter_case.h"
#include "platform/wine/native_file.h"

namespace panelkit {

namespace {

/// What stands before a native path where Wine takes a Windows path.
constexpr std::string_view kNative = R"(\\?\unix)";

bool IsSeparator(char c) {
  return c == '\\' || c == '/';
}

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' &&
         ((path[0] >= 'A' && path[0] <= 'Z') || (path[0] >= 'a' && path[0] <= 'z'));
}

std::string_view WithoutTrailingDots(std::string_view name) {
  return name.substr(0, name.find_last_not_of(". ") + 1);
}

/// Puts each part of `parts` behind the path; ".." takes one away, but never of the root.
void Append(std::string& path, std::size_t root_length, std::string_view parts) {
  while (!parts.empty()) {
    const auto length = std::find_if(parts.begin(), parts.end(), IsSeparator) - parts.begin();
    const auto end = static_cast<std::size_t>(length);
    const std::string_view part = parts.substr(0, end);
    if (part == "..") {
      path.resize(std::max(root_length, std::min(path.rfind('/'), path.size())));
    } else if (!part.empty() && part != ".") {
      path.append("/").append(part);
    }
    parts.remove_prefix(std::min(end + 1, parts.size()));
  }
}

std::string CurrentFolder() {
  std::error_code error;
  const std::string folder = std::filesystem::current_path(error);
  return folder == "/" ? "" : folder;
}

std::string OrRoot(const std::string& path) {
  return path.empty() ? "/" : path;
}

}  // namespace

Spellings::Folder Spellings::Read(const std::string& folder, const struct stat& status) {
  Folder read{DirectoryState(status, TimeOfStamps()), {}};
  for (auto& entry : ReadDirectory(folder).value_or(std::vector<DirectoryEntry>{})) {
    read.by_lowered_name[Lowered(entry.name)].push_back(std::move(entry.name));
  }
  for (auto& [lowered, names] : read.by_lowered_name) std::sort(names.begin(), names.end());
  return read;
}

std::vector<std::string> Spellings::Matches(const std::string& folder, std::string_view name) {
  constexpr std::size_t kMostFolders = 256;
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

/// Takes the path's beginning away and gives the folder that it means.
std::optional<PathResolver::Location> PathResolver::LocateRoot(std::string_view& path) const {
  std::optional<std::string> root;
  if (path.starts_with(kNative)) {
    root = "";
    path.remove_prefix(kNative.size());
  } else if (HasDrive(path)) {
    root = drives_.Root(path.front());
    path.remove_prefix(2);
  } else if (path.size() >= 2 && IsSeparator(path[0]) && IsSeparator(path[1])) {
    root = drives_.NetworkRoot();
  } else if (IsSeparator(path.front())) {
    const auto place = drives_.Holding(CurrentFolder());
    root = place ? drives_.Root(place->letter) : "";
  } else {
    return Location{CurrentFolder(), 0};
  }
  if (!root) return std::nullopt;
  const std::size_t length = root->size();
  return Location{*std::move(root), length};
}

std::optional<PathResolver::Location> PathResolver::Locate(std::string_view windows_path) const {
  if (windows_path.empty() || windows_path.find('\0') != std::string_view::npos) {
    return std::nullopt;
  }
  auto location = LocateRoot(windows_path);
  if (location) Append(location->path, location->root_length, windows_path);
  return location;
}

std::optional<PathResolver::Found> PathResolver::FindEntry(const std::string& folder,
                                                           std::string_view name) const {
  std::string entry = folder + '/';
  entry += name;
  if (const auto status = StatusOf(entry)) return Found{std::move(entry), *status};
  for (const auto& match : spellings_.Matches(OrRoot(folder), name)) {
    entry.replace(folder.size() + 1, std::string::npos, match);
    if (const auto status = StatusOf(entry)) return Found{std::move(entry), *status};
  }
  return std::nullopt;
}

// How much of the path, whose end is not there as it is spelt, leads to a folder that is: found
// from the end, where most spellings differ, but not over many parts.
std::size_t PathResolver::SpeltLength(const Location& location) {
  constexpr int kMostSteps = 3;
  std::size_t length = location.path.size();
  for (int step = 0; step < kMostSteps && length > location.root_length; ++step) {
    length = location.path.rfind('/', length - 1);
    if (StatusOf(OrRoot(location.path.substr(0, length)))) return length;
  }
  return location.root_length;
}

std::optional<PathResolver::Found> PathResolver::Find(const Location& location) const {
  std::string path = OrRoot(location.path);
  if (const auto status = StatusOf(path)) return Found{std::move(path), *status};
  const std::size_t spelt = SpeltLength(location);
  std::string folder = location.path.substr(0, spelt);
  std::string_view rest = std::string_view(location.path).substr(spelt);
  std::optional<Found> entry;
  while (!rest.empty()) {
    rest.remove_prefix(1);
    const std::size_t end = std::min(rest.find('/'), rest.size());
    const std::string_view name = rest.substr(0, end);
    rest.remove_prefix(end);
    entry = FindEntry(folder, name);
    const std::string_view trimmed = WithoutTrailingDots(name);
    if (!entry && rest.empty() && !trimmed.empty() && trimmed != name) {
      entry = FindEntry(folder, trimmed);
    }
    if (!entry) return std::nullopt;
    folder = entry->path;
  }
  return entry;
}

std::optional<std::string> PathResolver::Existing(std::string_view windows_path) const {
  const auto location = Locate(windows_path);
  auto found = location ? Find(*location) : std::nullopt;
  if (!found) return std::nullopt;
  return std::move(found->path);
}

std::optional<std::string> PathResolver::AsSpelt(std::string_view windows_path) const {
  auto location = Locate(windows_path);
  if (!location) return std::nullopt;
  return OrRoot(location->path);
}

std::optional<struct stat> PathResolver::Status(std::string_view windows_path) const {
  const auto location = Locate(windows_path);
  const auto found = location ? Find(*location) : std::nullopt;
  if (!found) return std::nullopt;
  return found->status;
}

std::optional<std::string> PathResolver::SpeltExactly(std::string_view windows_path) const {
  auto location = Locate(windows_path);
  if (!location || !IsPossible(windows_path) || location->path.size() == location->root_length) {
    return std::nullopt;
  }
  const std::string name(WithoutTrailingDots(NameOf(location->path)));
  location->path.resize(location->path.rfind('/'));
  const auto folder = Find(*location);
  if (!folder || !S_ISDIR(folder->status.st_mode) || name.empty()) return std::nullopt;
  return (folder->path == "/" ? "" : folder->path) + '/' + name;
}

std::optional<std::string> PathResolver::ForCreation(std::string_view windows_path) const {
  auto exact = SpeltExactly(windows_path);
  struct stat status {};
  if (!exact || lstat(exact->c_str(), &status) == 0) return exact;
  const auto others = OtherSpellings(*exact);
  if (others.empty()) return exact;
  return exact->substr(0, exact->rfind('/') + 1) + others.front();
}

std::vector<std::string> PathResolver::OtherSpellings(const std::string& native_path) const {
  const std::string_view name = NameOf(native_path);
  auto names = spellings_.Matches(FolderOf(native_path), name);
  names.erase(std::remove(names.begin(), names.end(), name), names.end());
  return names;
}

bool PathResolver::IsPossible(std::string_view windows_path) {
  if (HasDrive(windows_path)) windows_path.remove_prefix(2);
  const std::string_view name = windows_path.substr(windows_path.find_last_of("\\/") + 1);
  return !WithoutTrailingDots(name).empty() &&
         name.find_first_of("<>:\"|?*") == std::string_view::npos &&
         std::none_of(name.begin(), name.end(),
                      [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

std::string PathResolver::WindowsPathOf(std::string_view native_path) const {
  std::string path;
  Append(path, 0, native_path);
  const auto place = drives_.Holding(path);
  std::string windows =
      place ? std::string(1, place->letter) + ':' + place->rest : std::string(kNative) + path;
  std::replace(windows.begin(), windows.end(), '/', '\\');
  return windows;
}

}  // namespace panelkit
