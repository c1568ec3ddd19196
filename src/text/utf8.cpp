#include "text/utf8.h"

#include <utf8cpp/utf8.h>

#include <algorithm>
#include <iterator>

namespace panelkit {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsLeading(char32_t unit) {
  return unit >= 0xD800 && unit < 0xDC00;
}

bool IsTrailing(char32_t unit) {
  return unit >= 0xDC00 && unit < 0xE000;
}

template <typename Units>
std::string FromUnits(Units units) {
  std::string text;
  text.reserve(units.size());
  for (std::size_t i = 0; i < units.size(); ++i) {
    auto c = static_cast<char32_t>(units[i]);
    const char32_t next = i + 1 < units.size() ? static_cast<char32_t>(units[i + 1]) : 0;
    if (IsLeading(c) && IsTrailing(next)) {
      c = 0x10000 + ((c - 0xD800) << 10U) + (next - 0xDC00);
      ++i;
    }
    AppendCodePoint(text, c);
  }
  return text;
}

}  // namespace

char32_t TakeCodePoint(std::string_view text, std::size_t& position) {
  if (static_cast<unsigned char>(text[position]) < 0x80) {
    return static_cast<unsigned char>(text[position++]);
  }
  constexpr std::size_t kLongest = 4;
  const std::string_view bytes = text.substr(position, kLongest);
  const char* next = bytes.data();
  if (utf8::find_invalid(next, next + bytes.size()) == next) {
    ++position;
    return kNoCodePoint;
  }
  const char32_t code_point = utf8::unchecked::next(next);
  position += static_cast<std::size_t>(next - bytes.data());
  return code_point;
}

void AppendCodePoint(std::string& text, char32_t code_point) {
  const bool fits = code_point <= 0x10FFFF && !IsLeading(code_point) && !IsTrailing(code_point);
  utf8::unchecked::append(fits ? code_point : kReplacement, std::back_inserter(text));
}

bool IsUtf8(std::string_view text) {
  return utf8::is_valid(text.begin(), text.end());
}

std::size_t AsciiLength(std::string_view text) {
  const auto is_beyond = [](char c) { return static_cast<unsigned char>(c) >= 0x80; };
  return static_cast<std::size_t>(std::find_if(text.begin(), text.end(), is_beyond) - text.begin());
}

std::string FromUtf16(std::u16string_view units) {
  return FromUnits(units);
}

std::string FromWide(std::wstring_view wide) {
  return FromUnits(wide);
}

}  // namespace panelkit
