// The text of dates, by kernel32 and oleaut32.
#pragma once

#include "platform/date_stamps.h"

namespace panelkit::windows {

/// Dates in the formats that the user has set.
class WindowsDateStamps : public DateStamps {
 public:
  std::string DateText(double date) const override;
};

}  // namespace panelkit::windows
