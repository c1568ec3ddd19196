#include "platform/wine/cabinet/target_file.h"

#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <ctime>

#include "platform/wine/cabinet/win32_error.h"

namespace panelkit {

TargetFile::TargetFile(std::string path, bool read_only)
    : path_(std::move(path)), file_(TemporaryPathBeside(path_), read_only ? 0444 : 0666) {
  if (file_.IsOpen()) return;
  error_ = errno == ENOENT ? ERROR_PATH_NOT_FOUND : Win32ErrorOf(errno, ERROR_CANNOT_MAKE);
}

void TargetFile::SetTime(std::uint16_t date, std::uint16_t time) const {
  const std::chrono::year_month_day day{std::chrono::year(1980 + (date >> 9)),
                                        std::chrono::month(date >> 5 & 0xF),
                                        std::chrono::day(date & 0x1F)};
  std::tm local{};
  local.tm_year = 80 + (date >> 9);
  local.tm_mon = (date >> 5 & 0xF) - 1;
  local.tm_mday = date & 0x1F;
  local.tm_hour = time >> 11;
  local.tm_min = time >> 5 & 0x3F;
  local.tm_sec = (time & 0x1F) * 2;
  local.tm_isdst = -1;
  if (!day.ok() || local.tm_hour > 23 || local.tm_min > 59 || local.tm_sec > 59) return;
  const timespec times[2] = {{0, UTIME_OMIT}, {std::mktime(&local), 0}};
  futimens(file_.Descriptor(), times);
}

std::uint32_t TargetFile::Commit() {
  return file_.KeepAs(path_) ? ERROR_SUCCESS : Win32ErrorOf(errno, ERROR_WRITE_FAULT);
}

}  // namespace panelkit
