#include "platform/wine/hive_text.h"

#include <array>
#include <charconv>

#include "text/utf8.h"

namespace panelkit {

namespace {

constexpr std::uint32_t kString = 1;
constexpr std::uint32_t kExpandString = 2;
constexpr std::uint32_t kBinary = 3;
constexpr std::uint32_t kDword = 4;
constexpr std::uint32_t kMultiString = 7;

/// The number at `position` in up to `most` digits of `base`; moves behind it. nullopt
/// without a digit.
std::optional<std::uint32_t> ReadNumber(std::string_view text, std::size_t& position,
                                        std::size_t most, int base) {
  const std::string_view digits = text.substr(position, most);
  std::uint32_t number = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
  if (error != std::errc()) return std::nullopt;
  position += static_cast<std::size_t>(end - digits.data());
  return number;
}

/// The unit that the escape at `position` (behind the backslash) stands for; moves behind it.
char16_t ReadEscape(std::string_view text, std::size_t& position) {
  if (const auto octal = ReadNumber(text, position, 3, 8)) return static_cast<char16_t>(*octal);
  const char c = text[position++];
  if (c == 'x') return static_cast<char16_t>(ReadNumber(text, position, 4, 16).value_or('x'));
  constexpr std::string_view kLetters = "abefnrtv";
  constexpr std::array<char16_t, 8> kMeanings = {7, 8, 27, 12, 10, 13, 9, 11};
  const std::size_t letter = kLetters.find(c);
  return letter == std::string_view::npos ? static_cast<unsigned char>(c) : kMeanings.at(letter);
}

void AppendUnits(std::u16string& units, char32_t code_point) {
  if (code_point >= 0x10000 && code_point != kNoCodePoint) {
    units += static_cast<char16_t>(0xD7C0 + (code_point >> 10U));
    units += static_cast<char16_t>(0xDC00 + (code_point & 0x3FFU));
  } else {
    units += static_cast<char16_t>(code_point == kNoCodePoint ? 0xFFFD : code_point);
  }
}

/// Digits that end with the file may be cut off; those that end with their line are whole.
bool IsLineEnd(std::string_view notation, std::size_t position) {
  return notation.substr(position).starts_with('\n') ||
         notation.substr(position).starts_with("\r\n");
}

bool IsTextType(std::uint32_t type) {
  return type == kString || type == kExpandString || type == kMultiString;
}

std::optional<HiveValue> ReadString(std::string_view notation, std::uint32_t type) {
  if (!notation.starts_with('"')) return std::nullopt;
  const auto quoted = ReadQuoted(notation.substr(1), '"');
  if (!quoted) return std::nullopt;
  return HiveValue{type, true, quoted->text + '\0'};
}

std::optional<HiveValue> ReadDword(std::string_view notation) {
  std::size_t position = 0;
  const auto number = ReadNumber(notation, position, 8, 16);
  if (!number || !IsLineEnd(notation, position)) return std::nullopt;
  HiveValue value{kDword, false, {}};
  for (unsigned shift = 0; shift < 32; shift += 8) {
    value.content += static_cast<char>(*number >> shift & 0xFFU);
  }
  return value;
}

std::string TextOfUtf16Bytes(std::string_view bytes) {
  std::u16string units;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    units += static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                   static_cast<unsigned char>(bytes[i + 1]) << 8U);
  }
  return FromUtf16(units);
}

/// Pairs of digits with commas between them; a backslash ends a line that goes on in the next.
std::optional<HiveValue> ReadHex(std::string_view notation, std::uint32_t type) {
  std::string bytes;
  std::size_t position = 0;
  while (!IsLineEnd(notation, position)) {
    const auto byte = ReadNumber(notation, position, 2, 16);
    if (!byte) return std::nullopt;
    bytes += static_cast<char>(*byte);
    if (!notation.substr(position).starts_with(',')) continue;
    if (notation.substr(++position).starts_with('\\')) {
      position = notation.find_first_not_of(" \r\n", position + 1);
    }
    if (position >= notation.size() || IsLineEnd(notation, position)) return std::nullopt;
  }
  if (IsTextType(type)) return HiveValue{type, true, TextOfUtf16Bytes(bytes)};
  return HiveValue{type, false, bytes};
}

}  // namespace

std::optional<QuotedText> ReadQuoted(std::string_view notation, char end) {
  std::u16string units;
  std::size_t position = 0;
  while (position < notation.size()) {
    const char c = notation[position];
    if (c == end) return QuotedText{FromUtf16(units), position + 1};
    if (c == '\n' || notation.substr(position, 2) == "\\\n") return std::nullopt;
    if (c != '\\') {
      AppendUnits(units, TakeCodePoint(notation, position));
    } else if (++position < notation.size()) {
      units += ReadEscape(notation, position);
    }
  }
  return std::nullopt;
}

std::optional<HiveValue> ReadHiveValue(std::string_view notation) {
  const auto passed = [&notation](std::string_view tag) {
    if (!notation.starts_with(tag)) return false;
    notation.remove_prefix(tag.size());
    return true;
  };
  if (notation.starts_with('"')) return ReadString(notation, kString);
  if (passed("dword:")) return ReadDword(notation);
  if (passed("hex:")) return ReadHex(notation, kBinary);
  const bool is_string = passed("str(");
  if (!is_string && !passed("hex(")) return std::nullopt;
  std::size_t position = 0;
  const auto type = ReadNumber(notation, position, 8, 16);
  notation.remove_prefix(position);
  if (!type || !passed("):")) return std::nullopt;
  return is_string ? ReadString(notation, *type) : ReadHex(notation, *type);
}

}  // namespace panelkit
