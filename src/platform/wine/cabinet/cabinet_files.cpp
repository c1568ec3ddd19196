#include "platform/wine/cabinet/cabinet_files.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <ctime>
#include <utility>
#include <vector>

#include "platform/date_stamps.h"
#include "platform/wine/cabinet/win32_error.h"
#include "platform/wine/directory.h"
#include "platform/wine/letter_case.h"

namespace panelkit {

namespace {

// 0 if the file is open and plain.
std::uint32_t ErrorOf(const OpenFile& file) {
  struct stat status {};
  if (!file.IsOpen() || fstat(file.Descriptor(), &status) != 0) {
    return Win32ErrorOf(errno, ERROR_READ_FAULT);
  }
  if (S_ISDIR(status.st_mode)) return ERROR_ACCESS_DENIED;
  return S_ISREG(status.st_mode) ? ERROR_SUCCESS : ERROR_INVALID_DATA;
}

}  // namespace

OpenedCabinet OpenCabinet(const PathResolver& paths, std::string_view windows_path) {
  if (!PathResolver::IsPossible(windows_path)) return {nullptr, ERROR_INVALID_NAME};
  std::optional<std::string> native = paths.Existing(windows_path);
  // A file that was not found may be missing or lie in a folder that may not be searched: opening
  // its presumed path tells which.
  if (!native) native = paths.ForCreation(windows_path);
  if (!native) return {nullptr, ERROR_PATH_NOT_FOUND};
  auto file = std::make_unique<OpenFile>(*native, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  const std::uint32_t error = ErrorOf(*file);
  return {std::move(file), error};
}

std::optional<std::string> TargetPaths::Find(std::string_view windows_path) {
  std::optional<std::string> exact = paths_.SpeltExactly(windows_path);
  if (!exact) return std::nullopt;
  const std::string folder = FolderOf(*exact);
  const auto [known, is_new] = folders_.try_emplace(folder);
  NamesByLoweredName& names = known->second;
  if (is_new) {
    for (const auto& entry : ReadDirectory(folder).value_or(std::vector<DirectoryEntry>())) {
      std::string& name = names[Lowered(entry.name)];
      if (name.empty() || entry.name < name) name = entry.name;
    }
  }
  struct stat status {};
  if (lstat(exact->c_str(), &status) == 0) return exact;
  const std::string name(NameOf(*exact));
  return (folder == "/" ? "" : folder) + '/' + names.try_emplace(Lowered(name), name).first->second;
}

TargetFile::TargetFile(std::string path, bool read_only)
    : path_(std::move(path)), file_(Beside{path_}, read_only ? 0444 : 0666) {
  if (file_.IsOpen()) return;
  error_ = errno == ENOENT ? ERROR_PATH_NOT_FOUND : Win32ErrorOf(errno, ERROR_CANNOT_MAKE);
}

void TargetFile::SetTime(std::uint16_t date, std::uint16_t time) const {
  const auto stamp = FatStamp(date, time);
  if (!stamp) return;
  const auto day = std::chrono::floor<std::chrono::days>(*stamp);
  // mktime carries days past the month's end and seconds past the minute's over.
  std::tm local{};
  local.tm_year = 70;
  local.tm_mday = 1 + static_cast<int>(day.time_since_epoch().count());
  local.tm_sec = static_cast<int>((*stamp - day).count());
  local.tm_isdst = -1;
  const timespec times[2] = {{0, UTIME_OMIT}, {std::mktime(&local), 0}};
  futimens(file_.Descriptor(), times);
}

std::uint32_t TargetFile::Commit() {
  return file_.KeepAs(path_) ? ERROR_SUCCESS : Win32ErrorOf(errno, ERROR_WRITE_FAULT);
}

}  // namespace panelkit
