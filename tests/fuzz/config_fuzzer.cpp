// Any bytes as the simulator's configuration: an edit keeps every line that it has no business with.
#include <algorithm>
#include <string>
#include <vector>

#include "brake/config_edit.h"
#include "fuzz/fuzz.h"

namespace panelkit::fuzz {
namespace {

std::vector<std::string> Lines(std::string_view text) {
  std::vector<std::string> lines;
  bool open = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n' && i > 0 && text[i - 1] == '\r') continue;
    if (!open) lines.emplace_back();
    open = text[i] != '\r' && text[i] != '\n';
    if (open) lines.back() += text[i];
  }
  return lines;
}

bool Holds(std::string line, std::string_view words) {
  std::transform(line.begin(), line.end(), line.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return line.find(words) != std::string::npos;
}

// Whether `text` is these lines, each with its line end, and an empty one.
bool IsWritten(std::string_view text, const std::vector<std::string>& lines) {
  std::string written;
  for (const std::string& line : lines) written += line + "\r\n";
  return text == written + "\r\n";
}

}  // namespace
}  // namespace panelkit::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace panelkit;
  using namespace panelkit::fuzz;
  const std::string_view config = Bytes(bytes, size);
  const auto lines = Lines(config);
  std::vector<std::string> with_added;
  std::vector<std::string> with_set;
  for (const std::string& line : lines) {
    with_added.push_back(line);
    if (Holds(line, "sysclock")) with_added.emplace_back("show_brake_message=1");
    with_set.push_back(Holds(line, BrakeKey) ? "show_brake_message=0" : line);
  }
  std::size_t turns = 0;
  const LineTurn turn = [&turns] { ++turns; };
  Require(IsWritten(AsRead(config, turn), lines) && turns == lines.size());
  Require(IsWritten(WithSettingAdded(config, turn), with_added));
  const std::string set = WithSettingSet(config, 0, turn);
  Require(IsWritten(set, with_set));
  const bool has_setting = BrakeMessagesShown(config, turn).has_value();
  Require(BrakeMessagesShown(set, turn) == (has_setting ? std::optional(false) : std::nullopt));
  return 0;
}
