// From the stamp of a cabinet entry to a date-time value: days since 30 December 1899, with the
// time of day as the fraction. No time zone is applied at any step.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace panelkit {

/// 100-nanosecond steps since 1 January 1601.
using FILETIME = std::chrono::duration<std::uint64_t, std::ratio<1, 10'000'000>>;

/// A calendar date and time of day: the fields of minwinbase.h that a date-time value is made from.
struct SYSTEMTIME {
  std::uint16_t wYear = 0;
  std::uint16_t wMonth = 0;
  std::uint16_t wDay = 0;
  std::uint16_t wHour = 0;
  std::uint16_t wMinute = 0;
  std::uint16_t wSecond = 0;
};

/// The file time of a stamp in the FAT layout; nullopt if the stamp names no date.
std::optional<FILETIME> DosDateTimeToFileTime(std::uint16_t DosDate, std::uint16_t DosTime);

/// The calendar fields of a file time; nullopt past the year 30827, as on Windows.
std::optional<SYSTEMTIME> FileTimeToSystemTime(FILETIME FileTime);

/// The date-time value of calendar fields.
double SystemTimeToDate(const SYSTEMTIME& SystemTime);

/// The date-time value of a file time; 0 if it has no calendar fields.
double FileTimeToDate(FILETIME FileTime);

/// The date-time value of a stamp in the FAT layout. A stamp that names no date gives 1 January
/// 1601, the file time of zero.
double DosStampToDate(std::uint16_t DosDate, std::uint16_t DosTime);

}  // namespace panelkit
