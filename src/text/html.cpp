#include "text/html.h"

#include <cstdint>

#include "text/utf8.h"

namespace panelkit {
namespace {

bool IsPlain(char32_t character) {
  constexpr std::u32string_view kMarkup = U"&<>\"'";
  return character < 0x7F && kMarkup.find(character) == std::u32string_view::npos;
}

}  // namespace

std::string Escaped(std::string_view text) {
  std::string escaped;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t character = TakeCodePoint(text, position);
    if (character < ' ' || character == 0x7F || character == kNoCodePoint) {
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
