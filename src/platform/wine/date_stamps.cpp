#include "platform/wine/date_stamps.h"

#include <array>
#include <chrono>
#include <cmath>
#include <ctime>
#include <cwchar>

#include "platform/wine/utf8.h"

namespace panelkit {

namespace {

using std::chrono::day;
using std::chrono::days;
using std::chrono::hh_mm_ss;
using std::chrono::month;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

using Ticks = std::chrono::duration<std::uint64_t, std::ratio<1, 10'000'000>>;

constexpr sys_days kFileTimeEpoch = year{1601} / 1 / 1;
constexpr sys_days kDateEpoch = year{1899} / 12 / 30;
constexpr sys_days kFirstDate = year{100} / 1 / 1;
constexpr sys_days kLastDate = year{9999} / 12 / 31;
constexpr int kLastSystemYear = 30827;
constexpr long kSecondsPerDay = 86400;

unsigned Bits(std::uint16_t field, unsigned first, unsigned count) {
  return static_cast<unsigned>(field) >> first & ((1U << count) - 1);
}

std::tm Fields(sys_days date, long seconds) {
  const year_month_day ymd(date);
  std::tm fields{};
  fields.tm_year = static_cast<int>(ymd.year()) - 1900;
  fields.tm_mon = static_cast<int>(static_cast<unsigned>(ymd.month())) - 1;
  fields.tm_mday = static_cast<int>(static_cast<unsigned>(ymd.day()));
  fields.tm_wday = static_cast<int>(std::chrono::weekday(date).c_encoding());
  fields.tm_yday = static_cast<int>((date - sys_days(ymd.year() / 1 / 1)).count());
  fields.tm_hour = static_cast<int>(seconds / 3600);
  fields.tm_min = static_cast<int>(seconds / 60 % 60);
  fields.tm_sec = static_cast<int>(seconds % 60);
  fields.tm_zone = "";
  return fields;
}

}  // namespace

bool WineDateStamps::DosDateTimeToFileTime(std::uint16_t DosDate, std::uint16_t DosTime,
                                           FILETIME& FileTime) const {
  const year_month_day date(year(1980 + static_cast<int>(Bits(DosDate, 9, 7))),
                            month(Bits(DosDate, 5, 4)), day(Bits(DosDate, 0, 5)));
  const unsigned hour = Bits(DosTime, 11, 5);
  const unsigned minute = Bits(DosTime, 5, 6);
  const unsigned second = Bits(DosTime, 0, 5) * 2;
  if (!date.ok() || hour > 23 || minute > 59 || second > 59) return false;
  const Ticks ticks =
      sys_days(date) - kFileTimeEpoch + std::chrono::seconds(hour * 3600L + minute * 60L + second);
  FileTime = {static_cast<std::uint32_t>(ticks.count()),
              static_cast<std::uint32_t>(ticks.count() >> 32U)};
  return true;
}

bool WineDateStamps::FileTimeToSystemTime(const FILETIME& FileTime, SYSTEMTIME& SystemTime) const {
  const Ticks ticks(std::uint64_t{FileTime.dwHighDateTime} << 32U | FileTime.dwLowDateTime);
  const auto whole_days = std::chrono::duration_cast<days>(ticks);
  const sys_days date = kFileTimeEpoch + whole_days;
  const year_month_day ymd(date);
  if (whole_days.count() > days::rep{11'000'000} ||
      static_cast<int>(ymd.year()) > kLastSystemYear) {
    return false;
  }
  const hh_mm_ss time(std::chrono::floor<std::chrono::milliseconds>(ticks - whole_days));
  const auto field = [](auto value) { return static_cast<std::uint16_t>(value); };
  SystemTime = {field(static_cast<int>(ymd.year())),
                field(static_cast<unsigned>(ymd.month())),
                field(std::chrono::weekday(date).c_encoding()),
                field(static_cast<unsigned>(ymd.day())),
                field(time.hours().count()),
                field(time.minutes().count()),
                field(time.seconds().count()),
                field(time.subseconds().count())};
  return true;
}

std::string WineDateStamps::DateText(double date) const {
  // Before the epoch, too, the fraction counts forward from the start of its day.
  double whole_days = 0;
  const double fraction = std::abs(std::modf(date, &whole_days));
  if (!(whole_days >= (kFirstDate - kDateEpoch).count() &&
        whole_days <= (kLastDate - kDateEpoch).count())) {
    return {};
  }
  const long seconds = std::lround(fraction * kSecondsPerDay);
  const sys_days day_of_text =
      kDateEpoch + days(static_cast<int>(whole_days) + static_cast<int>(seconds / kSecondsPerDay));
  const std::tm fields = Fields(day_of_text, seconds % kSecondsPerDay);
  std::array<wchar_t, 256> buffer{};
  if (!locale_) locale_.emplace(LC_TIME_MASK | LC_CTYPE_MASK);
  const std::size_t length =
      wcsftime_l(buffer.data(), buffer.size(), L"%x %X", &fields, locale_->Get());
  std::string text;
  for (std::size_t i = 0; i < length; ++i) utf8::Append(text, static_cast<char32_t>(buffer[i]));
  return text;
}

}  // namespace panelkit
