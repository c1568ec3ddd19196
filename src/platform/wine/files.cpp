#include "platform/wine/files.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <future>
#include <thread>
#include <utility>

#include "platform/wine/dos_attributes.h"
#include "platform/wine/file_replacement.h"
#include "platform/wine/folder_reader.h"
#include "platform/wine/letter_case.h"
#include "platform/wine/native_file.h"
#include "platform/wine/utf8.h"
#include "text/matching.h"

namespace panelkit {

namespace {

/// MakeFolder's numbers for other failures lie above all numbers that mean something.
constexpr int kOtherFailure = 1000;

bool CanBeNamed(const std::string& name) {
  return utf8::IsValid(name) && name.find('\\') == std::string::npos;
}

/// The kind of an entry, links followed: DT_REG, DT_DIR or another.
unsigned char KindOf(const FolderEntry& entry, const std::string& folder) {
  if (entry.type != DT_LNK && entry.type != DT_UNKNOWN) return entry.type;
  const auto status = StatusOf(folder + '/' + entry.name);
  if (!status) return DT_UNKNOWN;
  return static_cast<unsigned char>(IFTODT(status->st_mode));
}

/// Takes hidden and system entries of the folder out. Threads share the work, most of the time that
/// a listing takes, the more so on a disk that has to look for each.
void RemoveHidden(const std::string& folder, std::vector<ListedEntry>& entries) {
  constexpr std::size_t kLeastShare = 256;  // Worth a thread.
  const FolderAttributes attributes(folder);
  const auto clear_hidden = [&attributes, &entries](std::size_t begin, std::size_t end) {
    for (std::size_t i = begin; i < end; ++i) {
      if (attributes.IsHiddenOrSystem(entries[i].name)) entries[i].name.clear();
    }
  };
  const std::size_t share =
      std::max(kLeastShare, entries.size() / std::max(1U, std::thread::hardware_concurrency()) + 1);
  std::vector<std::future<void>> others;
  for (std::size_t begin = share; begin < entries.size(); begin += share) {
    // One for which there is no thread runs below.
    others.push_back(std::async(std::launch::async | std::launch::deferred, clear_hidden, begin,
                                std::min(begin + share, entries.size())));
  }
  clear_hidden(0, std::min(share, entries.size()));
  for (auto& other : others) other.get();
  std::erase_if(entries, [](const ListedEntry& entry) { return entry.name.empty(); });
}

/// Orders the entries by their upper-cased names.
void Sort(std::vector<ListedEntry>& entries) {
  std::vector<std::pair<std::string, ListedEntry>> by_upper;
  by_upper.reserve(entries.size());
  for (auto& entry : entries) {
    std::string upper = Uppered(entry.name);
    by_upper.emplace_back(std::move(upper), std::move(entry));
  }
  std::sort(by_upper.begin(), by_upper.end(), [](const auto& a, const auto& b) {
    return a.first != b.first ? a.first < b.first : a.second.name < b.second.name;
  });
  std::transform(by_upper.begin(), by_upper.end(), entries.begin(),
                 [](auto& entry) { return std::move(entry.second); });
}

std::string_view WithoutClosingSeparator(std::string_view path) {
  return path.substr(0, path.find_last_not_of("\\/") + 1);
}

}  // namespace

std::string WineFiles::AppFolder() const {
  if (folders_.app == folders_.user) MakePrivateFolder(folders_.user);
  return resolver_.WindowsPathOf(folders_.app);
}

std::optional<std::vector<ListedEntry>> WineFiles::List(std::string_view pattern,
                                                        ListedEntries entries) const {
  const std::size_t name_start = pattern.find_last_of("\\/") + 1;
  const auto folder = resolver_.Existing(name_start == 0 ? "." : pattern.substr(0, name_start));
  auto found = folder ? ReadFolder(*folder) : std::nullopt;
  if (!found) return std::nullopt;
  const std::string wanted = Lowered(pattern.substr(name_start));
  const bool with_folders = entries == ListedEntries::FilesAndFolders;
  std::vector<ListedEntry> listed;
  for (auto& entry : *found) {
    if (!CanBeNamed(entry.name) || !MatchesWildcard(wanted, Lowered(entry.name))) continue;
    const unsigned char kind = KindOf(entry, *folder);
    if (kind == DT_REG || (kind == DT_DIR && with_folders)) {
      listed.push_back({std::move(entry.name), kind == DT_DIR});
    }
  }
  RemoveHidden(*folder, listed);
  Sort(listed);
  for (const char* name : {"..", "."}) {
    if (with_folders && MatchesWildcard(wanted, name)) listed.insert(listed.begin(), {name, true});
  }
  return listed;
}

std::optional<std::string> WineFiles::PlainFile(std::string_view path) const {
  auto native = resolver_.Existing(path);
  const auto status = native ? StatusOf(*native) : std::nullopt;
  return status && S_ISREG(status->st_mode) ? native : std::nullopt;
}

bool WineFiles::IsFolder(std::string_view path) const {
  const auto status = resolver_.Status(path);
  return status && S_ISDIR(status->st_mode);
}

bool WineFiles::IsPlainFile(std::string_view path) const {
  const auto native = PlainFile(path);
  return native && !IsHiddenOrSystem(*native);
}

bool WineFiles::Exists(std::string_view path) const {
  return resolver_.Existing(path).has_value();
}

bool WineFiles::IsSame(std::string_view path, std::string_view other) const {
  const auto a = resolver_.Status(path);
  const auto b = resolver_.Status(other);
  return a && b && a->st_dev == b->st_dev && a->st_ino == b->st_ino;
}

bool WineFiles::IsLink(std::string_view path) const {
  const auto native = resolver_.ForCreation(path);
  struct stat status {};
  return native && lstat(native->c_str(), &status) == 0 && S_ISLNK(status.st_mode);
}

std::string WineFiles::UserFolder() const {
  return MakePrivateFolder(folders_.user) ? resolver_.WindowsPathOf(folders_.user) : "";
}

/// Absent, or NoAccess if the last folder on the way that is there is closed to us.
FileFault WineFiles::WhyNotFound(std::string_view path) const {
  for (;;) {
    const std::size_t separator = path.find_last_of("\\/");
    if (separator == std::string_view::npos) return FileFault::Absent;
    path = WithoutClosingSeparator(path.substr(0, separator));
    if (const auto folder = resolver_.Existing(path)) {
      return faccessat(AT_FDCWD, folder->c_str(), X_OK, AT_EACCESS) == 0 ? FileFault::Absent
                                                                         : FaultOf(errno);
    }
  }
}

FileContent WineFiles::Read(std::string_view path) const {
  if (const auto spelt = resolver_.AsSpelt(path)) {
    auto content = ReadPlainFile(*spelt, kLargestFile);
    if (content.fault != FileFault::Absent) return content;
  }
  const auto native = resolver_.Existing(path);
  if (!native) return {std::nullopt, WhyNotFound(path)};
  return ReadPlainFile(*native, kLargestFile);
}

FileFault WineFiles::Replace(std::string_view path, std::string_view bytes, Durability durability) {
  auto target = resolver_.Existing(path);
  if (!target) target = resolver_.ForCreation(path);
  if (!target) return WhyNotFound(path);
  if (folders_.app == folders_.user) MakePrivateFolder(folders_.user);
  return ReplaceFile(*target, bytes, durability, folders_.app);
}

int WineFiles::MakeFolder(std::string_view path) {
  path = WithoutClosingSeparator(path);
  if (resolver_.Existing(path)) return kFolderExistsOrNoAccess;
  const auto target = resolver_.ForCreation(path);
  if (!target) {
    return path.empty() || PathResolver::IsPossible(path) ? kFolderParentMissing
                                                          : kOtherFailure + EINVAL;
  }
  if (mkdir(target->c_str(), 0777) == 0) return kFolderCreated;
  switch (errno) {
    case EEXIST:
    case EACCES:
    case EPERM:
    case EROFS:
      return kFolderExistsOrNoAccess;
    case ENOENT:
    case ENOTDIR:
      return kFolderParentMissing;
    default:
      return kOtherFailure + errno;
  }
}

bool WineFiles::Copy(std::string_view source, std::string_view target) {
  const auto from = resolver_.Existing(source);
  const auto to = resolver_.ForCreation(target);
  return from && to && CopyFile(*from, *to);
}

bool WineFiles::Rename(std::string_view from, std::string_view to) {
  const auto old_path = PlainFile(from);
  const auto new_path = resolver_.SpeltExactly(to);
  if (!old_path || !new_path) return false;
  const auto file = StatusOf(*old_path);
  const std::string folder = new_path->substr(0, new_path->rfind('/') + 1);
  const auto others = resolver_.OtherSpellings(*new_path);
  const auto is_folder = [&folder](const std::string& name) {
    const auto status = StatusOf(folder + name);
    return status && S_ISDIR(status->st_mode);
  };
  if (std::any_of(others.begin(), others.end(), is_folder) ||
      rename(old_path->c_str(), new_path->c_str()) != 0) {
    return false;
  }
  for (const std::string& name : others) {
    const auto status = StatusOf(folder + name);
    // A disk that ignores case itself may list the renamed file under its old spelling.
    const bool is_renamed = status && file && status->st_ino == file->st_ino;
    if (!is_renamed) unlink((folder + name).c_str());
  }
  return FlushFolder(FolderOf(*new_path));
}

bool WineFiles::Delete(std::string_view path) {
  // Unlike Windows, Linux asks for no attribute of a file that is to go.
  const auto native = PlainFile(path);
  return native && unlink(native->c_str()) == 0;
}

}  // namespace panelkit
