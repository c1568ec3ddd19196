#include <windows.h>

#include <oleauto.h>

#include "platform/windows/wide.h"
#include "platform/windows/windows_machine.h"

namespace panelkit::windows {
namespace {

/// Calls GetDateFormatW or GetTimeFormatW for the user's locale.
template <typename Format>
std::string Formatted(Format format, const ::SYSTEMTIME& fields) {
  std::wstring text(format(LOCALE_USER_DEFAULT, 0, &fields, nullptr, nullptr, 0), L'\0');
  format(LOCALE_USER_DEFAULT, 0, &fields, nullptr, text.data(), static_cast<int>(text.size()));
  return Utf8(text.c_str());
}

}  // namespace

// Not VarBstrFromDate, which joins the two formats but drops the time at midnight and the date on
// day 0.
std::string WindowsDateStamps::DateText(double date) const {
  ::SYSTEMTIME fields{};
  if (!VariantTimeToSystemTime(date, &fields)) return {};
  return Formatted(GetDateFormatW, fields) + " " + Formatted(GetTimeFormatW, fields);
}

}  // namespace panelkit::windows
