#include "brake/config_edit.h"

#include "text/line_reader.h"
#include "text/matching.h"

namespace panelkit {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

// Writes the file anew; `edit` appends what stands for one line, without the last line's end.
std::string Rewritten(std::string_view config, const BetweenLines& between_lines,
                      const std::function<void(std::string_view line, std::string& text)>& edit) {
  std::string text;
  LineReader lines(config, LoneLf::EndsLineWithoutCr);
  while (!lines.AtEnd()) {
    between_lines();
    edit(lines.Next(), text);
    text += kLineEnd;
  }
  text += kLineEnd;
  return text;
}

std::string Setting(int b) {
  return std::string(BrakeKey) + "=" + std::to_string(b);
}

bool IsShown(std::string_view line) {
  // Without "=" the first character decides, which is then a letter.
  line.remove_prefix(line.find('=') + 1);
  const char value = line.empty() ? ' ' : line.front();
  const bool is_digit = value >= '0' && value <= '9';
  return !is_digit || value == '1';
}

}  // namespace

std::optional<bool> BrakeMessagesShown(std::string_view config, const BetweenLines& between_lines) {
  LineReader lines(config, LoneLf::EndsLineWithoutCr);
  while (!lines.AtEnd()) {
    between_lines();
    const std::string_view line = lines.Next();
    if (ContainsIgnoringCase(line, BrakeKey)) return IsShown(line);
  }
  return std::nullopt;
}

std::string AsRead(std::string_view config, const BetweenLines& between_lines) {
  return Rewritten(config, between_lines,
                   [](std::string_view line, std::string& text) { text += line; });
}

std::string WithSettingAdded(std::string_view config, const BetweenLines& between_lines) {
  return Rewritten(config, between_lines, [](std::string_view line, std::string& text) {
    text += line;
    if (ContainsIgnoringCase(line, "sysclock")) text.append(kLineEnd).append(Setting(1));
  });
}

std::string WithSettingSet(std::string_view config, int b, const BetweenLines& between_lines) {
  return Rewritten(config, between_lines, [b](std::string_view line, std::string& text) {
    if (ContainsIgnoringCase(line, BrakeKey)) {
      text += Setting(b);
    } else {
      text += line;
    }
  });
}

}  // namespace panelkit
