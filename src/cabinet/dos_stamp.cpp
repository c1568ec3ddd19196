#include "cabinet/dos_stamp.h"

#include "platform/date_stamps.h"

namespace panelkit {
namespace {

using namespace std::chrono_literals;
using std::chrono::days;
using std::chrono::sys_days;

constexpr sys_days kFileTimeEpoch = 1601y / 1 / 1;
constexpr FILETIME kEndOfCalendar = sys_days(30828y / 1 / 1) - kFileTimeEpoch;

}  // namespace

std::optional<FILETIME> DosDateTimeToFileTime(std::uint16_t DosDate, std::uint16_t DosTime) {
  const auto stamp = FatStamp(DosDate, DosTime);
  if (!stamp) return std::nullopt;
  return stamp->time_since_epoch() - kFileTimeEpoch.time_since_epoch();
}

std::optional<SYSTEMTIME> FileTimeToSystemTime(FILETIME FileTime) {
  if (FileTime >= kEndOfCalendar) return std::nullopt;
  const auto whole_days = std::chrono::duration_cast<days>(FileTime);
  const std::chrono::year_month_day date(kFileTimeEpoch + whole_days);
  const std::chrono::hh_mm_ss time(
      std::chrono::duration_cast<std::chrono::seconds>(FileTime - whole_days));
  const auto field = [](auto value) { return static_cast<std::uint16_t>(value); };
  return SYSTEMTIME{field(static_cast<int>(date.year())),
                    field(static_cast<unsigned>(date.month())),
                    field(static_cast<unsigned>(date.day())),
                    field(time.hours().count()),
                    field(time.minutes().count()),
                    field(time.seconds().count())};
}

double SystemTimeToDate(const SYSTEMTIME& SystemTime) {
  using namespace std::chrono;
  const sys_days date = year(SystemTime.wYear) / month(SystemTime.wMonth) / day(SystemTime.wDay);
  const seconds time =
      hours(SystemTime.wHour) + minutes(SystemTime.wMinute) + seconds(SystemTime.wSecond);
  return static_cast<double>((date - kDateEpoch).count()) +
         duration<double, days::period>(time).count();
}

double FileTimeToDate(FILETIME FileTime) {
  const auto SystemTime = FileTimeToSystemTime(FileTime);
  return SystemTime ? SystemTimeToDate(*SystemTime) : 0;
}

double DosStampToDate(std::uint16_t DosDate, std::uint16_t DosTime) {
  return FileTimeToDate(DosDateTimeToFileTime(DosDate, DosTime).value_or(FILETIME(0)));
}

}  // namespace panelkit
