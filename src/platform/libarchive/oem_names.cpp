#include "platform/libarchive/oem_names.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace panelkit {
namespace {

// The characters of the bytes from 0x80 on.
constexpr std::u16string_view kPage437 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜ¢£¥₧ƒáíóúñÑªº¿⌐¬½¼¡«»░▒▓│┤╡╢╖╕╣║╗╝╜╛┐└┴┬├─┼╞╟╚╔╩╦╠═╬╧"
    u"╨╤╥╙╘╒╓╫╪┘┌█▄▌▐▀αßΓπΣσµτΦΘΩδ∞φε∩≡±≥≤⌠⌡÷≈°∙·√ⁿ²■\u00A0";
constexpr std::u16string_view kPage850 =
    u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒáíóúñÑªº¿®¬½¼¡«»░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐└┴┬├─┼ãÃ╚╔╩╦╠═╬¤"
    u"ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0";
static_assert(kPage437.size() == 0x80 && kPage850.size() == 0x80);

bool GoesOn(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The number of bytes of the character that begins with `lead`, by its upper bits; 0 if none does.
std::size_t LengthFor(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  return byte < 0x80   ? 1
         : byte < 0xC2 ? 0
         : byte < 0xE0 ? 2
         : byte < 0xF0 ? 3
         : byte < 0xF5 ? 4
                       : 0;
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = LengthFor(bytes[0]);
    if (length == 0 || length > bytes.size() ||
        !std::all_of(bytes.begin() + 1, bytes.begin() + length, GoesOn)) {
      return false;
    }
    bytes.remove_prefix(length);
  }
  return true;
}

/// The bytes of a text in a code page; nullopt if it has none.
std::optional<std::string> BytesOf(std::string_view text, std::u16string_view page) {
  std::string bytes;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t length = LengthFor(text[i]);
    if (length == 0 || length > 3 || i + length > text.size()) return std::nullopt;
    if (length == 1) {
      bytes += text[i];
    } else {
      unsigned unit = static_cast<unsigned char>(text[i]) & (length == 2 ? 0x1FU : 0x0FU);
      for (std::size_t k = 1; k < length; ++k) {
        unit = unit << 6U | (static_cast<unsigned char>(text[i + k]) & 0x3FU);
      }
      const std::size_t place = page.find(static_cast<char16_t>(unit));
      if (place == std::u16string_view::npos) return std::nullopt;
      bytes += static_cast<char>(0x80 + place);
    }
    i += length;
  }
  return bytes;
}

void AppendUtf8(std::string& text, char32_t c) {
  const auto add = [&text](std::uint32_t byte) { text += static_cast<char>(byte); };
  if (c < 0x80) return add(c);
  if (c < 0x800) {
    add(0xC0U | c >> 6U);
  } else if (c < 0x10000) {
    add(0xE0U | c >> 12U);
    add(0x80U | (c >> 6U & 0x3FU));
  } else {
    add(0xF0U | c >> 18U);
    add(0x80U | (c >> 12U & 0x3FU));
    add(0x80U | (c >> 6U & 0x3FU));
  }
  add(0x80U | (c & 0x3FU));
}

std::string Decoded(std::string_view bytes, std::u16string_view page) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendUtf8(text, byte < 0x80 ? byte : page[byte - 0x80U]);
  }
  return text;
}

}  // namespace

std::vector<std::string> PossibleNames(std::string_view as_437, const Text& text) {
  const auto bytes = BytesOf(as_437, kPage437);
  if (!bytes) return {std::string(as_437)};
  if (IsUtf8(*bytes)) return {*bytes};
  std::vector<std::string> names{std::string(as_437)};
  for (const std::string& name : {Decoded(*bytes, kPage850), text.FromAnsi(*bytes)}) {
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  return names;
}

std::string Utf8Of(std::wstring_view wide) {
  const auto is_between = [](char32_t c, char32_t low, char32_t high) {
    return c >= low && c <= high;
  };
  std::string text;
  const auto unit = [&](std::size_t i) { return i < wide.size() ? char32_t(wide[i]) : U'\0'; };
  for (std::size_t i = 0; i < wide.size(); ++i) {
    char32_t c = unit(i);
    const char32_t next = unit(i + 1);
    if (is_between(c, 0xD800, 0xDBFF) && is_between(next, 0xDC00, 0xDFFF)) {
      c = 0x10000 + ((c - 0xD800) << 10U) + (next - 0xDC00);
      ++i;
    }
    AppendUtf8(text, is_between(c, 0xD800, 0xDFFF) || c > 0x10FFFF ? U'\uFFFD' : c);
  }
  return text;
}

std::string NameOfBytes(const std::string& name) {
  static const std::u16string same_numbers = [] {
    std::u16string page;
    for (char16_t c = 0x80; c < 0x100; ++c) page += c;
    return page;
  }();
  const auto bytes = BytesOf(name, same_numbers);
  return bytes && IsUtf8(*bytes) ? *bytes : name;
}

}  // namespace panelkit
