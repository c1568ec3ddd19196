#include "cabinet/dos_stamp.h"

#include <chrono>

namespace panelkit {

double SystemTimeToDate(const SYSTEMTIME& SystemTime) {
  using namespace std::chrono;
  constexpr sys_days kDayZero = 1899y / December / 30;
  const sys_days date = year(SystemTime.wYear) / month(SystemTime.wMonth) / day(SystemTime.wDay);
  const seconds time =
      hours(SystemTime.wHour) + minutes(SystemTime.wMinute) + seconds(SystemTime.wSecond);
  constexpr double kSecondsADay = 86400;
  return static_cast<double>((date - kDayZero).count()) +
         static_cast<double>(time.count()) / kSecondsADay;
}

double FileTimeToDate(const DateStamps& dates, const FILETIME& FileTime) {
  SYSTEMTIME SystemTime;
  return dates.FileTimeToSystemTime(FileTime, SystemTime) ? SystemTimeToDate(SystemTime) : 0;
}

double DosStampToDate(const DateStamps& dates, std::uint16_t DosDate, std::uint16_t DosTime) {
  FILETIME FileTime;
  dates.DosDateTimeToFileTime(DosDate, DosTime, FileTime);
  return FileTimeToDate(dates, FileTime);
}

}  // namespace panelkit
