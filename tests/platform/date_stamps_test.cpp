// What the date conversions of every machine promise.
#include <doctest/doctest.h>

#include <array>

#include "platform/disk.h"

namespace panelkit::test {
namespace {

TEST_CASE_FIXTURE(Disk,
                  "A stamp of the FAT layout becomes calendar fields, unshifted, or nothing") {
  using Fields = std::array<unsigned, 7>;
  const struct {
    std::uint16_t date, time;
    Fields fields;  // None: it names no date.
  } stamps[] = {
      {0x2C21, 0x6000, {2002, 1, 2, 1, 12, 0, 0}},
      {0x2C87, 0x13C0, {2002, 4, 0, 7, 2, 30, 0}},  // In the hour that New York's clocks skip.
      {0x285D, 0x0000, {2000, 2, 2, 29, 0, 0, 0}},
      {0xFF9F, 0xBF7D, {2107, 12, 6, 31, 23, 59, 58}},
      {0x0000, 0x0000, {}},
      {0x2C5E, 0x0000, {}},  // 30 February.
      {0x2C21, 0xC000, {}},  // 24:00.
      {0x2C21, 0x0780, {}},  // 60 minutes.
      {0x2C21, 0x001E, {}},  // 60 seconds.
  };
  const DateStamps& dates = machine->Services().dates;
  for (const auto& stamp : stamps) {
    CAPTURE(stamp.date);
    CAPTURE(stamp.time);
    const bool is_date = stamp.fields != Fields{};
    FILETIME time{0xFFFFFFFF, 0x7FFFFFFF};  // Past the last year, where it is left alone.
    SYSTEMTIME s;
    CHECK(dates.DosDateTimeToFileTime(stamp.date, stamp.time, time) == is_date);
    CHECK(dates.FileTimeToSystemTime(time, s) == is_date);
    CHECK(Fields{s.wYear, s.wMonth, s.wDayOfWeek, s.wDay, s.wHour, s.wMinute, s.wSecond} ==
          stamp.fields);
  }
}

}  // namespace
}  // namespace panelkit::test
