#include "platform/libarchive/oem_names.h"

#include <algorithm>
#include <optional>

#include "text/utf8.h"

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

/// The bytes of a text in a code page; nullopt if it has none.
std::optional<std::string> BytesOf(std::string_view text, std::u16string_view page) {
  std::string bytes;
  for (std::size_t position = 0; position < text.size();) {
    const char32_t c = TakeCodePoint(text, position);
    if (c < 0x80) {
      bytes += static_cast<char>(c);
      continue;
    }
    const auto place = std::find(page.begin(), page.end(), c);
    if (place == page.end()) return std::nullopt;
    bytes += static_cast<char>(0x80 + (place - page.begin()));
  }
  return bytes;
}

std::string Decoded(std::string_view bytes, std::u16string_view page) {
  std::string text;
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    AppendCodePoint(text, byte < 0x80 ? byte : page[byte - 0x80U]);
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

std::string NameOfBytes(const std::string& name) {
  static const std::u16string same_numbers = [] {
    std::u16string page;
    for (char16_t c = 0x80; c < 0x100; ++c) page += c;
    return page;
  }();
  const auto bytes = BytesOf(name, same_numbers);
  return bytes && IsUtf8(*bytes) ? *bytes : name;
}

std::string Tidied(std::string name) {
  for (char& c : name) {
    if (c == '/') c = '\\';
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
  }
  std::string tidied;
  for (std::size_t begin = 0; begin <= name.size();) {
    const std::size_t end = std::min(name.find('\\', begin), name.size());
    const std::string part = name.substr(begin, end - begin);
    const bool is_nothing = part == "." || (part.empty() && begin > 0);
    if (!is_nothing) tidied += part;
    if (!is_nothing && end < name.size()) tidied += '\\';
    begin = end + 1;
  }
  return tidied;
}

}  // namespace panelkit
