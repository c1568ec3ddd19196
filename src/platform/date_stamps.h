// The stamps of the FAT file system, and dates as text.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace panelkit {

/// The date and time of a stamp in the FAT layout, whose time zone is up to the reader; nullopt if
/// it names no date. `date`: bits 15 to 9 years since 1980, 8 to 5 month, 4 to 0 day; `time`: bits
/// 15 to 11 hours, 10 to 5 minutes, 4 to 0 seconds divided by two.
inline std::optional<std::chrono::local_seconds> FatStamp(std::uint16_t date, std::uint16_t time) {
  const std::chrono::year_month_day day(std::chrono::year(1980 + (date >> 9)),
                                        std::chrono::month(date >> 5 & 0xF),
                                        std::chrono::day(date & 0x1F));
  const std::chrono::hours hours(time >> 11);
  const std::chrono::minutes minutes(time >> 5 & 0x3F);
  const std::chrono::seconds seconds((time & 0x1F) * 2);
  if (!day.ok() || hours.count() > 23 || minutes.count() > 59 || seconds.count() > 59) {
    return std::nullopt;
  }
  return std::chrono::local_days(day) + hours + minutes + seconds;
}

/// The day from which date-time values count.
inline constexpr std::chrono::sys_days kDateEpoch =
    std::chrono::year(1899) / std::chrono::December / 30;

/// The machine's way to write a date.
class DateStamps {
 public:
  virtual ~DateStamps() = default;

  /// A date-time value (days since kDateEpoch, time of day as the fraction) in the user's
  /// locale: the short date, a blank, the long time, the time also at midnight. Empty for a
  /// date before the year 100 or after 9999.
  virtual std::string DateText(double date) const = 0;
};

}  // namespace panelkit
