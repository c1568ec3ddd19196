// From the stamp of a cabinet entry to a date-time value: whole days since 30 December 1899, with
// the time of day as the fraction.
#pragma once

#include <cstdint>

#include "platform/date_stamps.h"

namespace panelkit {

/// The value of a calendar date and time.
double SystemTimeToDate(const SYSTEMTIME& SystemTime);

/// The value of a file time; 0 where the machine cannot split it.
double FileTimeToDate(const DateStamps& dates, const FILETIME& FileTime);

/// The value of a stamp in the FAT layout, unshifted by any time zone. A stamp that names no date
/// gives 1 January 1601, the file time of zero.
double DosStampToDate(const DateStamps& dates, std::uint16_t DosDate, std::uint16_t DosTime);

}  // namespace panelkit
