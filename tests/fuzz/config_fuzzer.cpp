// Any bytes as the simulator's configuration: an edit keeps each line that it has no business with.
#include <algorithm>

#include "brake/config_edit.h"
#include "fuzz/fuzz.h"

void panelkit::fuzz::Try(std::string_view input) {
  std::string as_read;
  std::string added;
  std::string set;
  bool has_setting = false;
  for (std::size_t at = 0; at < input.size();) {
    const std::string line(input.substr(at, input.find_first_of("\r\n", at) - at));
    at += line.size() + (input.substr(at + line.size(), 2) == "\r\n" ? 2 : 1);
    std::string lowered = line;
    std::transform(line.begin(), line.end(), lowered.begin(), ::tolower);
    const bool is_setting = lowered.find(BrakeKey) != std::string::npos;
    const bool is_clock = lowered.find("sysclock") != std::string::npos;
    has_setting = has_setting || is_setting;
    as_read += line + "\r\n";
    added += line + (is_clock ? "\r\nshow_brake_message=1\r\n" : "\r\n");
    set += (is_setting ? "show_brake_message=0" : line) + "\r\n";
  }
  const BetweenLines nothing = [] {};
  Require(AsRead(input, nothing) == as_read + "\r\n");
  Require(WithSettingAdded(input, nothing) == added + "\r\n");
  Require(WithSettingSet(input, 0, nothing) == set + "\r\n");
  Require(BrakeMessagesShown(input, nothing).has_value() == has_setting);
  Require(BrakeMessagesShown(set, nothing).value_or(!has_setting) == !has_setting);
}
