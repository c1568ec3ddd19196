#include "platform/wine/cabinet/open_cabinet.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <optional>
#include <string>

#include "platform/wine/cabinet/win32_error.h"

namespace panelkit {

namespace {

// 0 if the open file is one that can be read from start to end.
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
  // What is not there, or lies out of sight in a closed folder, has a path of its own all the same:
  // opening it tells which of the two it is.
  if (!native) native = paths.ForCreation(windows_path);
  if (!native) return {nullptr, ERROR_PATH_NOT_FOUND};
  auto file = std::make_unique<OpenFile>(*native, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  const std::uint32_t error = ErrorOf(*file);
  return {std::move(file), error};
}

}  // namespace panelkit
