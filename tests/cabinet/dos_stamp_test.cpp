#include "cabinet/dos_stamp.h"

#include <doctest/doctest.h>

#include <tuple>

namespace panelkit::test {
namespace {

TEST_CASE("A stamp of the FAT layout becomes a date-time value, unshifted, or 1601 if it is none") {
  const std::tuple<std::uint16_t, std::uint16_t, double> stamps[] = {
      {0x2C21, 0x6000, 37257.5},           // 1 January 2002, 12:00:00.
      {0x2C87, 0x13C0, 37353 + 2.5 / 24},  // 7 April 2002, 2:30, which New York's clocks skip.
      {0x285D, 0x0000, 36585},             // 29 February 2000.
      {0xFF9F, 0xBF7D, 75971 + 86398 / 86400.0},  // 31 December 2107, 23:59:58.
      {0x0000, 0x0000, -109205},
      {0x2C5E, 0x0000, -109205},  // 30 February.
      {0x2C21, 0xC000, -109205},  // 24:00.
      {0x2C21, 0x0780, -109205},  // 60 minutes.
      {0x2C21, 0x001E, -109205},  // 60 seconds.
  };
  for (const auto& stamp : stamps) {
    const auto date = std::get<0>(stamp);
    const auto time = std::get<1>(stamp);
    CAPTURE(date);
    CAPTURE(time);
    CHECK(DosStampToDate(date, time) == doctest::Approx(std::get<2>(stamp)).epsilon(1e-12));
  }
}

TEST_CASE("A file time past the year 30827 has no date") {
  const FILETIME end(0x7FFF35F4F06C8000);
  CHECK(FileTimeToSystemTime(end - FILETIME(1))->wYear == 30827);
  for (const FILETIME time : {end, FILETIME::max()}) CHECK(FileTimeToDate(time) == 0);
}

}  // namespace
}  // namespace panelkit::test
