// Date stamps on Linux.
#pragma once

#include <optional>

#include "platform/date_stamps.h"
#include "platform/wine/user_locale.h"

namespace panelkit {

/// The Gregorian calendar, and dates in the words of the user's locale (C where that is not
/// installed), as it is when the first one is asked for.
class WineDateStamps final : public DateStamps {
 public:
  bool DosDateTimeToFileTime(std::uint16_t DosDate, std::uint16_t DosTime,
                             FILETIME& FileTime) const override;
  bool FileTimeToSystemTime(const FILETIME& FileTime, SYSTEMTIME& SystemTime) const override;

  /// Empty for what is no number or lies outside the years 100 to 9999.
  std::string DateText(double date) const override;

 private:
  mutable std::optional<UserLocale> locale_;
};

}  // namespace panelkit
