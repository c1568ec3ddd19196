#include "platform/wine/utf8.h"

#include <algorithm>
#include <array>

namespace panelkit::utf8 {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsSurrogate(char32_t c) {
  return c >= 0xD800 && c <= 0xDFFF;
}

}  // namespace

char32_t Next(std::string_view text, std::size_t& position) {
  const auto lead = static_cast<unsigned char>(text[position++]);
  if (lead < 0x80) return lead;
  if (lead < 0xC2 || lead > 0xF4) return kInvalid;
  const std::size_t more = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  if (text.size() - position < more) return kInvalid;
  char32_t c = lead & (0x3FU >> more);
  for (std::size_t i = 0; i < more; ++i) {
    const auto next = static_cast<unsigned char>(text[position + i]);
    if ((next & 0xC0U) != 0x80) return kInvalid;
    c = c << 6U | (next & 0x3FU);
  }
  constexpr std::array<char32_t, 4> kSmallest = {0, 0x80, 0x800, 0x10000};
  if (c < kSmallest.at(more) || c > 0x10FFFF || IsSurrogate(c)) return kInvalid;
  position += more;
  return c;
}

void Append(std::string& text, char32_t code_point) {
  const char32_t c = code_point > 0x10FFFF || IsSurrogate(code_point) ? kReplacement : code_point;
  const auto put = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (c < 0x80) {
    put(c);
    return;
  }
  if (c < 0x800) {
    put(0xC0 | c >> 6U);
  } else if (c < 0x10000) {
    put(0xE0 | c >> 12U);
    put(0x80 | (c >> 6U & 0x3FU));
  } else {
    put(0xF0 | c >> 18U);
    put(0x80 | (c >> 12U & 0x3FU));
    put(0x80 | (c >> 6U & 0x3FU));
  }
  put(0x80 | (c & 0x3FU));
}

bool IsValid(std::string_view text) {
  std::size_t position = AsciiLength(text);
  while (position < text.size()) {
    if (Next(text, position) == kInvalid) return false;
  }
  return true;
}

std::size_t AsciiLength(std::string_view text) {
  const auto is_beyond = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
  return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), is_beyond) - text.begin());
}

std::string FromUtf16(std::u16string_view units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    char32_t c = units[i];
    if (c >= 0xD800 && c < 0xDC00 && i + 1 < units.size() && units[i + 1] >= 0xDC00 &&
        units[i + 1] < 0xE000) {
      c = 0x10000 + ((c - 0xD800) << 10U) + (units[++i] - 0xDC00U);
    }
    Append(text, c);
  }
  return text;
}

}  // namespace panelkit::utf8
