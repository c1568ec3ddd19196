// The text of dates on Linux.
#pragma once

#include <optional>

#include "platform/date_stamps.h"
#include "platform/wine/user_locale.h"

namespace panelkit {

/// Dates in the format of the user's locale (C if that is not installed), read from the environment
/// at the first call.
class WineDateStamps final : public DateStamps {
 public:
  /// Empty for a value that is no number or outside the years 100 to 9999.
  std::string DateText(double date) const override;

 private:
  mutable std::optional<UserLocale> locale_;
};

}  // namespace panelkit
