// Text by the system's tables of code pages and letters.
#pragma once

#include "platform/text.h"

namespace panelkit::windows {

/// One code page of Windows and the locale-independent rule of case.
class WindowsText : public Text {
 public:
  /// The code page `page` ("windows-1252" is 1252), which this Windows has installed.
  explicit WindowsText(unsigned page) : page_(page) {}

  std::string FromAnsi(std::string_view bytes) const override;
  std::string ToAnsi(std::string_view text) const override;
  std::string Lower(std::string_view text) const override;
  std::string Upper(std::string_view text) const override;

 private:
  unsigned page_;
};

}  // namespace panelkit::windows
