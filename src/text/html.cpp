#include "text/html.h"

#include <bit>
#include <cstdint>

namespace panelkit {
namespace {

// Takes the first character off `text`, which is UTF-8.
char32_t TakeCharacter(std::string_view& text) {
  const auto lead = static_cast<std::uint8_t>(text.front());
  text.remove_prefix(1);
  if (lead < 0x80) return lead;
  const int length = std::countl_one(lead);
  char32_t character = lead & (0x7FU >> length);
  for (int i = 1; i < length && !text.empty(); ++i) {
    character = (character << 6U) | (static_cast<std::uint8_t>(text.front()) & 0x3FU);
    text.remove_prefix(1);
  }
  return character;
}

bool IsPlain(char32_t character) {
  constexpr std::u32string_view kMarkup = U"&<>\"'";
  return character < 0x7F && kMarkup.find(character) == std::u32string_view::npos;
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    if (character < ' ' || character == 0x7F) {
      escaped += '?';
    } else if (IsPlain(character)) {
      escaped += static_cast<char>(character);
    } else {
      escaped += "&#" + std::to_string(static_cast<std::uint32_t>(character)) + ";";
    }
  }
  return escaped;
}

}  // namespace panelkit
