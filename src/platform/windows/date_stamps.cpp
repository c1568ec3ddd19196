#include "platform/windows/date_stamps.h"

#include <windows.h>

#include <oleauto.h>

#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

/// The last year that a calendar record holds.
constexpr WORD kLastYear = 30827;

::FILETIME Theirs(const panelkit::FILETIME& time) {
  return {time.dwLowDateTime, time.dwHighDateTime};
}

::SYSTEMTIME CalendarFields(std::uint16_t dos_date, std::uint16_t dos_time) {
  ::SYSTEMTIME fields{};
  fields.wYear = static_cast<WORD>(1980 + (dos_date >> 9));
  fields.wMonth = (dos_date >> 5) & 0xF;
  fields.wDay = dos_date & 0x1F;
  fields.wHour = static_cast<WORD>(dos_time >> 11);
  fields.wMinute = (dos_time >> 5) & 0x3F;
  fields.wSecond = static_cast<WORD>((dos_time & 0x1F) * 2);
  return fields;
}

/// Calls GetDateFormatW or GetTimeFormatW for the user's locale.
template <typename Format>
std::string Formatted(Format format, const ::SYSTEMTIME& fields) {
  std::wstring text(format(LOCALE_USER_DEFAULT, 0, &fields, nullptr, nullptr, 0), L'\0');
  format(LOCALE_USER_DEFAULT, 0, &fields, nullptr, text.data(), static_cast<int>(text.size()));
  return Utf8(text.c_str());
}

}  // namespace

// Decoded here, since Wine's call of this name passes through the local time zone and so loses the
// hour that summer time skips.
bool WindowsDateStamps::DosDateTimeToFileTime(std::uint16_t DosDate, std::uint16_t DosTime,
                                              panelkit::FILETIME& FileTime) const {
  const ::SYSTEMTIME fields = CalendarFields(DosDate, DosTime);
  ::FILETIME time{};
  if (!::SystemTimeToFileTime(&fields, &time)) return false;
  FileTime = {time.dwLowDateTime, time.dwHighDateTime};
  return true;
}

bool WindowsDateStamps::FileTimeToSystemTime(const panelkit::FILETIME& FileTime,
                                             panelkit::SYSTEMTIME& SystemTime) const {
  constexpr DWORD kSignBit = 0x80000000;
  const ::FILETIME time = Theirs(FileTime);
  ::SYSTEMTIME fields{};
  if ((time.dwHighDateTime & kSignBit) != 0 || !::FileTimeToSystemTime(&time, &fields) ||
      fields.wYear > kLastYear) {
    return false;
  }
  SystemTime = {fields.wYear, fields.wMonth,  fields.wDayOfWeek, fields.wDay,
                fields.wHour, fields.wMinute, fields.wSecond,    fields.wMilliseconds};
  return true;
}

// The two formats that VarBstrFromDate joins, each for itself: that call drops the time at midnight
// and the date on day 0.
std::string WindowsDateStamps::DateText(double date) const {
  ::SYSTEMTIME fields{};
  if (!VariantTimeToSystemTime(date, &fields)) return {};
  return Formatted(GetDateFormatW, fields) + " " + Formatted(GetTimeFormatW, fields);
}

}  // namespace panelkit::windows
