#include "console/outcome.h"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <utility>

#include "platform/terminal.h"

namespace panelkit {
namespace {

using Json = nlohmann::ordered_json;

constexpr int kJsonVersion = 1;

// The length in UTF-8 of the control character (C0, DEL or C1) that begins at `position`, or 0.
std::size_t ControlLength(std::string_view text, std::size_t position) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  if (byte(position) < 0x20 || byte(position) == 0x7F) return 1;
  const bool is_c1 = byte(position) == 0xC2 && position + 1 < text.size() &&
                     byte(position + 1) >= 0x80 && byte(position + 1) < 0xA0;
  return is_c1 ? 2 : 0;
}

void AppendShown(std::string_view line, std::string& text) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    const std::size_t length = ControlLength(line, i);
    if (length == 0) {
      text += line[i];
      continue;
    }
    i += length - 1;
    std::array<char, 5> escape{};
    static_cast<void>(std::snprintf(escape.data(), escape.size(), "\\x%02x",
                                    static_cast<unsigned>(static_cast<unsigned char>(line[i]))));
    text += escape.data();
  }
}

std::string AsciiJson(const Json& json, int indent) {
  return json.dump(indent, ' ', true, Json::error_handler_t::replace) + "\n";
}

void Complain(const std::string& sentence, Format format) {
  if (format == Format::Json) return terminal::WriteError(AsciiJson({{"error", sentence}}, -1));
  std::string line = "panelkit-console: ";
  AppendShown(sentence, line);
  terminal::WriteError(line + "\n");
}

}  // namespace

void Outcome::Fail(std::string sentence) {
  complaints.push_back(std::move(sentence));
  status = kExitError;
}

void Outcome::Interrupt(const std::string& sentence) {
  complaints.push_back(sentence.empty() ? "Interrupted." : "Interrupted. " + sentence);
  status = terminal::kExitInterrupted;
}

Outcome Failure(std::string sentence) {
  Outcome outcome;
  outcome.Fail(std::move(sentence));
  return outcome;
}

std::string JsonText(const CommandLine& line, const Json& members) {
  Json whole{{"panelkit_json", kJsonVersion}, {"command", line.command_name}};
  whole.update(members);
  return AsciiJson(whole, 2);
}

Lines::Lines() : on_terminal_(terminal::OutIsTerminal()) {}

void Lines::Add(std::string_view line) {
  if (on_terminal_) {
    AppendShown(line, text_);
  } else {
    text_ += line;
  }
  text_ += '\n';
}

void Lines::AddNames(std::string_view heading, const std::vector<std::string>& names) {
  Add(heading);
  for (const std::string& name : names) Add("    " + name);
}

void Lines::AddText(std::string_view text) {
  if (!on_terminal_) {
    text_ += text;
    return;
  }
  while (!text.empty()) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    Add(line);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
}

int Print(const Outcome& outcome, Format format) {
  const auto complain = [&] {
    for (const std::string& sentence : outcome.complaints) Complain(sentence, format);
  };
  if (outcome.complains_first) complain();
  const bool printed = outcome.is_page ? terminal::WriteOutBytes(outcome.output)
                                       : terminal::WriteOut(outcome.output);
  if (!outcome.complains_first) complain();
  if (printed) return outcome.status;
  Complain("The output could not be written.", format);
  return kExitError;
}

}  // namespace panelkit
