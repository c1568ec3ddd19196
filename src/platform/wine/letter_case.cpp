#include "platform/wine/letter_case.h"

#include <algorithm>
#include <clocale>
#include <cwctype>

#include "text/utf8.h"

namespace panelkit {

namespace {

using Mapping = wint_t (*)(wint_t, locale_t);

/// A locale that knows every letter and no language: without one only ASCII letters are mapped.
locale_t UnicodeLocale() {
  static const locale_t locale = [] {
    for (const char* name : {"C.UTF-8", "en_US.UTF-8"}) {
      if (const locale_t found = newlocale(LC_CTYPE_MASK, name, nullptr)) return found;
    }
    return newlocale(LC_CTYPE_MASK, "C", nullptr);
  }();
  return locale;
}

char AsciiLower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

char AsciiUpper(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}

template <char (*map_ascii)(char), Mapping map>
std::string Mapped(std::string_view text) {
  std::string mapped(AsciiLength(text), '\0');
  std::size_t position = mapped.size();
  std::transform(text.begin(), text.begin() + std::ptrdiff_t(position), mapped.begin(), map_ascii);
  while (position < text.size()) {
    const std::size_t start = position;
    const char32_t c = TakeCodePoint(text, position);
    if (c < 0x80) {
      mapped += map_ascii(static_cast<char>(c));
      continue;
    }
    const auto other =
        c == kNoCodePoint ? c : static_cast<char32_t>(map(static_cast<wint_t>(c), UnicodeLocale()));
    if (other == c || other < 0x80) {
      mapped += text.substr(start, position - start);
    } else {
      AppendCodePoint(mapped, other);
    }
  }
  return mapped;
}

}  // namespace

std::string Lowered(std::string_view text) {
  return Mapped<AsciiLower, towlower_l>(text);
}

std::string Uppered(std::string_view text) {
  return Mapped<AsciiUpper, towupper_l>(text);
}

}  // namespace panelkit
