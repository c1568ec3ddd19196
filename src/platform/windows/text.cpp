#include <windows.h>

#include <algorithm>
#include <array>

#include "platform/windows/wide.h"
#include "platform/windows/windows_machine.h"

namespace panelkit::windows {
namespace {

// A byte that its page leaves undefined becomes a character of the private plane 15, which no code
// page reaches: U+F0000 and the byte. In UTF-16 that is the pair DB80, DC00 and the byte.
constexpr wchar_t kPlaceholderLead = 0xDB80;
constexpr wchar_t kPlaceholderTrail = 0xDC00;

constexpr unsigned kGb18030 = 54936;

bool IsAscii(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool IsHighSurrogate(wchar_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

/// Pages of Unicode take neither a default character nor a ban on best-fit letters, and need none.
bool IsUnicode(unsigned page) {
  return page == CP_UTF8 || page == kGb18030;
}

/// Appends the decoded `bytes` and gives true, or leaves `wide` alone where they are no text of
/// that page.
bool AppendDecoded(std::wstring& wide, unsigned page, std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  const int units = MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, bytes.data(), size, nullptr, 0);
  if (units <= 0) return false;
  const std::size_t old_size = wide.size();
  wide.resize(old_size + units);
  MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, bytes.data(), size, wide.data() + old_size,
                      units);
  return true;
}

/// The longest run of bytes that one character of the page may take at the start of `bytes`.
std::size_t LongestCharacter(unsigned page, std::string_view bytes) {
  const auto first = static_cast<unsigned char>(bytes.front());
  const std::size_t limit = first < 0x80                    ? 1
                            : IsUnicode(page)               ? 4
                            : IsDBCSLeadByteEx(page, first) ? 2
                                                            : 1;
  return std::min(limit, bytes.size());
}

/// Decodes character by character, with a placeholder for each byte that is none.
std::wstring DecodeDamaged(unsigned page, std::string_view bytes) {
  std::wstring wide;
  while (!bytes.empty()) {
    std::size_t taken = 1;
    const std::size_t longest = LongestCharacter(page, bytes);
    while (taken <= longest && !AppendDecoded(wide, page, bytes.substr(0, taken))) ++taken;
    if (taken > longest) {
      wide += kPlaceholderLead;
      wide += static_cast<wchar_t>(kPlaceholderTrail + static_cast<unsigned char>(bytes.front()));
      taken = 1;
    }
    bytes.remove_prefix(taken);
  }
  return wide;
}

/// Encodes text without surrogate pairs, or any text where the page is one of Unicode.
std::string Encode(unsigned page, std::wstring_view text) {
  const int units = static_cast<int>(text.size());
  const DWORD flags = IsUnicode(page) ? 0 : WC_NO_BEST_FIT_CHARS;
  const char* substitute = IsUnicode(page) ? nullptr : "?";
  std::string bytes(
      WideCharToMultiByte(page, flags, text.data(), units, nullptr, 0, substitute, nullptr), '\0');
  WideCharToMultiByte(page, flags, text.data(), units, bytes.data(), static_cast<int>(bytes.size()),
                      substitute, nullptr);
  return bytes;
}

/// Encodes one surrogate pair.
std::string EncodePair(unsigned page, std::wstring_view pair) {
  if (pair[0] == kPlaceholderLead && pair[1] >= kPlaceholderTrail + 0x80 &&
      pair[1] <= kPlaceholderTrail + 0xFF) {
    return {static_cast<char>(pair[1] - kPlaceholderTrail)};
  }
  // Encoded unit by unit, a character that the page lacks would become two question marks.
  return IsUnicode(page) ? Encode(page, pair) : "?";
}

/// Maps letter by letter as the file system does: no locale, no change of length.
std::wstring MapCase(std::wstring_view text, DWORD mapping) {
  const int units = static_cast<int>(text.size());
  std::wstring mapped(text.size(), L'\0');
  if (units > 0) LCMapStringW(LOCALE_INVARIANT, mapping, text.data(), units, mapped.data(), units);
  return mapped;
}

}  // namespace

std::string WindowsText::FromAnsi(std::string_view bytes) const {
  if (IsAscii(bytes)) return std::string(bytes);
  std::wstring wide;
  if (!AppendDecoded(wide, page_, bytes)) wide = DecodeDamaged(page_, bytes);
  return Utf8(wide);
}

std::string WindowsText::ToAnsi(std::string_view text) const {
  if (IsAscii(text)) return std::string(text);
  const std::wstring wide = Wide(text);
  std::wstring_view rest = wide;
  std::string bytes;
  while (!rest.empty()) {
    const auto pair = std::find_if(rest.begin(), rest.end(), IsHighSurrogate);
    const std::size_t plain = pair - rest.begin();
    bytes += Encode(page_, rest.substr(0, plain));
    rest.remove_prefix(plain);
    if (!rest.empty()) bytes += EncodePair(page_, rest.substr(0, 2));
    rest.remove_prefix(std::min<std::size_t>(2, rest.size()));
  }
  return bytes;
}

std::string WindowsText::Lower(std::string_view text) const {
  return Utf8(MapCase(Wide(text), LCMAP_LOWERCASE));
}

std::string WindowsText::Upper(std::string_view text) const {
  const std::wstring wide = Wide(text);
  std::wstring upper = MapCase(wide, LCMAP_UPPERCASE);
  for (std::size_t i = 0; i < upper.size(); ++i) {
    const auto is_in_page = [&](const std::wstring& units) {
      return Encode(page_, {&units[i], 1}) != "?";
    };
    if (upper[i] != wide[i] && is_in_page(wide) && !is_in_page(upper)) upper[i] = wide[i];
  }
  return Utf8(upper);
}

}  // namespace panelkit::windows
