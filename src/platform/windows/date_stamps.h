// Dates by kernel32 and oleaut32.
#pragma once

#include "platform/date_stamps.h"

namespace panelkit::windows {

/// The conversions of Windows; texts in the locale and with the formats that the user has set.
class WindowsDateStamps : public DateStamps {
 public:
  bool DosDateTimeToFileTime(std::uint16_t DosDate, std::uint16_t DosTime,
                             FILETIME& FileTime) const override;
  bool FileTimeToSystemTime(const FILETIME& FileTime, SYSTEMTIME& SystemTime) const override;
  std::string DateText(double date) const override;
};

}  // namespace panelkit::windows
