#include <windows.h>

#include <doctest/doctest.h>

#include "platform/windows/date_stamps.h"

using panelkit::windows::WindowsDateStamps;

namespace {

/// The user's locale for the length of a test, as the control panel sets it.
class Locale {
 public:
  explicit Locale(LCID locale) : old_(GetThreadLocale()) { SetThreadLocale(locale); }
  ~Locale() { SetThreadLocale(old_); }

 private:
  LCID old_;
};

}  // namespace

TEST_CASE("A stamp of the FAT layout becomes calendar fields, unshifted, or nothing") {
  struct {
    std::uint16_t date;
    std::uint16_t time;
    int year;  // 0: names no date
    int hour;
    int second;
  } const cases[] = {
      {0x2C21, 0x6000, 2002, 12, 0},   // 1 January 2002, 12:00:00
      {0x2C87, 0x1400, 2002, 2, 0},    // 2:30 in the hour that New York's clocks skip
      {0xFF9F, 0xBF7D, 2107, 23, 58},  // the last stamp
      {0x0000, 0x0000, 0, 0, 0},      {0x2C5E, 0x6000, 0, 0, 0},  // 30 February
      {0x2C21, 0xC000, 0, 0, 0},                                  // 24:00
      {0x2C21, 0x001E, 0, 0, 0},                                  // 60 seconds
  };
  const WindowsDateStamps dates;
  for (const auto& example : cases) {
    CAPTURE(example.date);
    CAPTURE(example.time);
    panelkit::FILETIME time{7, 7};
    panelkit::SYSTEMTIME fields;
    if (example.year == 0) {
      CHECK_FALSE(dates.DosDateTimeToFileTime(example.date, example.time, time));
      CHECK(time.dwLowDateTime == 7);
      continue;
    }
    REQUIRE(dates.DosDateTimeToFileTime(example.date, example.time, time));
    REQUIRE(dates.FileTimeToSystemTime(time, fields));
    CHECK(fields.wYear == example.year);
    CHECK(fields.wHour == example.hour);
    CHECK(fields.wSecond == example.second);
  }
  panelkit::SYSTEMTIME untouched;
  CHECK_FALSE(dates.FileTimeToSystemTime({0, 0x80000000}, untouched));
  CHECK_FALSE(dates.FileTimeToSystemTime({0xFFFFFFFF, 0x7FFFFFFF}, untouched));
  CHECK(untouched.wYear == 0);
}

TEST_CASE("A date's text has the short date and the long time, also at midnight and on day 0") {
  const WindowsDateStamps dates;
  CHECK(dates.DateText(37257.5) == "1/1/2002 12:00:00 PM");
  CHECK(dates.DateText(37257.0) == "1/1/2002 12:00:00 AM");
  CHECK(dates.DateText(0) == "12/30/1899 12:00:00 AM");
}
