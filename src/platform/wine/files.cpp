#include "platform/wine/files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "platform/wine/dos_attributes.h"
#include "platform/wine/file_replacement.h"
#include "platform/wine/native_file.h"

namespace panelkit {

namespace {

/// MakeFolder's numbers for other failures lie above all numbers that mean something.
constexpr int kOtherFailure = 1000;

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
  const std::string_view path = name_start == 0 ? "." : pattern.substr(0, name_start);
  const std::string_view names = pattern.substr(name_start);
  if (const auto spelt = resolver_.AsSpelt(path)) {
    if (auto listed = listing_.List(*spelt, names, entries)) return listed;
  }
  const auto folder = resolver_.Existing(path);
  return folder ? listing_.List(*folder, names, entries) : std::nullopt;
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

std::string WineFiles::NativePath(std::string_view path) const {
  auto native = resolver_.Existing(path);
  if (!native) native = resolver_.ForCreation(path);
  return native ? *native : std::string(path);
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
  return ReplaceFile(*target, bytes, durability);
}

FileFault WineFiles::Overwrite(std::string_view path, std::string_view bytes) {
  const auto target = resolver_.Existing(path);
  return target ? OverwriteFile(*target, bytes) : WhyNotFound(path);
}

void WineFiles::Append(std::string_view path, std::string_view bytes) {
  auto target = resolver_.Existing(path);
  if (!target) target = resolver_.ForCreation(path);
  if (!target) return;
  const OpenFile file(*target, O_WRONLY | O_APPEND | O_CREAT | O_NONBLOCK, 0666);
  if (WriteAll(file.Descriptor(), bytes)) fsync(file.Descriptor());
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

std::shared_ptr<void> WineFiles::Lock(std::string_view folder) {
  const auto native = resolver_.Existing(folder);
  if (!native) return nullptr;
  auto file = std::make_shared<OpenFile>(*native, O_RDONLY | O_DIRECTORY);
  while (flock(file->Descriptor(), LOCK_EX) != 0) {
    if (errno != EINTR) return nullptr;
  }
  return file;
}

}  // namespace panelkit
