// The notation of Wine's registry files ("WINE REGISTRY Version 2"), piece by piece, as Wine's
// server writes it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace panelkit {

/// A text without its escapes, and how far it went.
struct QuotedText {
  std::string text;        ///< UTF-8.
  std::size_t length = 0;  ///< Bytes of the notation, the closing character included.
};

/// Reads a text up to its closing character `end` on the same line: escapes are a backslash and a
/// letter of "abefnrtv", up to three octal digits, "x" and up to four hexadecimal ones (a unit of
/// UTF-16), or the character itself. nullopt if the closing character is missing.
std::optional<QuotedText> ReadQuoted(std::string_view notation, char end);

/// A value of a key.
struct HiveValue {
  std::uint32_t type = 0;  ///< Type code of winnt.h.
  bool is_text = false;    ///< Types 1, 2 and 7.
  std::string content;     ///< Text in UTF-8 with its closing 0 as stored, or the bytes.
};

/// Reads what stands behind the "=" of a value, over continued lines: a quoted text, str(N): and
/// one, dword:, hex: or hex(N):. nullopt for a damaged value.
std::optional<HiveValue> ReadHiveValue(std::string_view notation);

}  // namespace panelkit
