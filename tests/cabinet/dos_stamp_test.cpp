#include "cabinet/dos_stamp.h"

#include <doctest/doctest.h>

#include <array>

namespace panelkit::test {
namespace {

using Fields = std::array<unsigned, 6>;

Fields FieldsOf(std::optional<FILETIME> time) {
  const auto s = time ? FileTimeToSystemTime(*time) : std::nullopt;
  return s ? Fields{s->wYear, s->wMonth, s->wDay, s->wHour, s->wMinute, s->wSecond} : Fields{};
}

TEST_CASE("A stamp of the FAT layout becomes a date-time value, unshifted, or 1601") {
  const struct {
    std::uint16_t date, time;
    Fields fields;  // None: it names no date.
    double value;
  } stamps[] = {
      {0x2C21, 0x6000, {2002, 1, 1, 12, 0, 0}, 37257.5},
      {0x2C87, 0x13C0, {2002, 4, 7, 2, 30, 0}, 37353 + 2.5 / 24},  // New York's clocks skip it.
      {0x285D, 0x0000, {2000, 2, 29, 0, 0, 0}, 36585},
      {0xFF9F, 0xBF7D, {2107, 12, 31, 23, 59, 58}, 75971 + 86398 / 86400.0},
      {0x0000, 0x0000, {}, -109205},
      {0x2C5E, 0x0000, {}, -109205},  // 30 February.
      {0x2C21, 0xC000, {}, -109205},  // 24:00.
      {0x2C21, 0x0780, {}, -109205},  // 60 minutes.
      {0x2C21, 0x001E, {}, -109205},  // 60 seconds.
  };
  for (const auto& stamp : stamps) {
    CAPTURE(stamp.date);
    CAPTURE(stamp.time);
    CHECK(FieldsOf(DosDateTimeToFileTime(stamp.date, stamp.time)) == stamp.fields);
    CHECK(DosStampToDate(stamp.date, stamp.time) == doctest::Approx(stamp.value).epsilon(1e-12));
  }
}

TEST_CASE("A file time past the year 30827 has no calendar fields") {
  const FILETIME end(0x7FFF35F4F06C8000);
  CHECK(FieldsOf(end - FILETIME(1)) == Fields{30827, 12, 31, 23, 59, 59});
  for (const FILETIME time : {end, FILETIME::max()}) CHECK(FileTimeToDate(time) == 0);
}

}  // namespace
}  // namespace panelkit::test
