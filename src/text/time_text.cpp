#include "text/time_text.h"

#include <array>
#include <cstdio>

namespace panelkit {

std::string TimeText(std::chrono::sys_seconds time) {
  using namespace std::chrono;
  const auto day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss clock(time - day);
  std::array<char, 80> text{};
  static_cast<void>(std::snprintf(text.data(), text.size(), "%04d-%02u-%02u %02d:%02d:%02d",
                                  int(date.year()), unsigned(date.month()), unsigned(date.day()),
                                  int(clock.hours().count()), int(clock.minutes().count()),
                                  int(clock.seconds().count())));
  return text.data();
}

std::chrono::sys_seconds Now() {
  return std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
}

}  // namespace panelkit
