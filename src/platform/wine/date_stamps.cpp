#include <array>
#include <chrono>
#include <cmath>
#include <ctime>
#include <cwchar>

#include "platform/wine/services.h"
#include "text/utf8.h"

namespace panelkit {

namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year;
using std::chrono::year_month_day;

constexpr sys_days kFirstDate = year{100} / 1 / 1;
constexpr sys_days kLastDate = year{9999} / 12 / 31;
constexpr long kSecondsPerDay = 86400;

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
  for (std::size_t i = 0; i < length; ++i) AppendCodePoint(text, static_cast<char32_t>(buffer[i]));
  return text;
}

}  // namespace panelkit
