// Any bytes as the simulator's configuration: an edit keeps each line that it has no business with.
#include "brake/config_edit.h"
#include "fuzz/fuzz.h"

using namespace panelkit;
using fuzz::Require;

namespace {

bool Holds(std::string line, std::string_view words) {
  for (char& c : line) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  return line.find(words) != std::string::npos;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string_view config = fuzz::Bytes(bytes, size);
  std::string as_read;
  std::string added;
  std::string set;
  bool has_setting = false;
  for (std::size_t at = 0; at < size;) {
    const std::string line(config.substr(at, config.find_first_of("\r\n", at) - at));
    at += line.size() + (config.substr(at + line.size(), 2) == "\r\n" ? 2 : 1);
    const bool is_setting = Holds(line, BrakeKey);
    has_setting = has_setting || is_setting;
    as_read += line + "\r\n";
    added += line + (Holds(line, "sysclock") ? "\r\nshow_brake_message=1\r\n" : "\r\n");
    set += (is_setting ? "show_brake_message=0" : line) + "\r\n";
  }
  const LineTurn turn = [] {};
  Require(AsRead(config, turn) == as_read + "\r\n");
  Require(WithSettingAdded(config, turn) == added + "\r\n");
  Require(WithSettingSet(config, 0, turn) == set + "\r\n");
  Require(BrakeMessagesShown(config, turn).has_value() == has_setting);
  Require(BrakeMessagesShown(set, turn).value_or(!has_setting) == !has_setting);
  return 0;
}
