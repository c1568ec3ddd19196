// Seam 2, date stamps: from the stamp of a cabinet entry to calendar fields, and dates as text.
#pragma once

#include <cstdint>
#include <string>

namespace panelkit {

/// 100-nanosecond steps since 1 January 1601, as minwinbase.h lays it out.
struct FILETIME {
  std::uint32_t dwLowDateTime = 0;
  std::uint32_t dwHighDateTime = 0;
};

/// A calendar date and time, as minwinbase.h lays it out.
struct SYSTEMTIME {
  std::uint16_t wYear = 0;
  std::uint16_t wMonth = 0;
  std::uint16_t wDayOfWeek = 0;
  std::uint16_t wDay = 0;
  std::uint16_t wHour = 0;
  std::uint16_t wMinute = 0;
  std::uint16_t wSecond = 0;
  std::uint16_t wMilliseconds = 0;
};

/// The machine's date conversions. No time zone is applied anywhere.
class DateStamps {
 public:
  virtual ~DateStamps() = default;

  /// Decodes a stamp in the FAT layout. False, with `FileTime` untouched, for a stamp that names no
  /// date.
  virtual bool DosDateTimeToFileTime(std::uint16_t DosDate, std::uint16_t DosTime,
                                     FILETIME& FileTime) const = 0;

  /// Splits a time into calendar fields. False, with `SystemTime` untouched, past the year 30827.
  virtual bool FileTimeToSystemTime(const FILETIME& FileTime, SYSTEMTIME& SystemTime) const = 0;

  /// A date-time value (days since 30 December 1899, time of day as the fraction) in the user's
  /// locale: the short date, a blank, the long time, the time also at midnight.
  virtual std::string DateText(double date) const = 0;
};

}  // namespace panelkit
