// UTF-8, code point by code point.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace panelkit {

/// What TakeCodePoint gives for a byte that begins no valid sequence.
inline constexpr char32_t kNoCodePoint = 0xFFFFFFFF;

/// The code point at `position`, which moves behind it; kNoCodePoint, one byte further, for a byte
/// that begins no valid sequence (overlong forms and surrogates are none).
char32_t TakeCodePoint(std::string_view text, std::size_t& position);

/// Appends a code point; U+FFFD for one that UTF-8 cannot hold.
void AppendCodePoint(std::string& text, char32_t code_point);

/// Whether the whole text is valid.
bool IsUtf8(std::string_view text);

/// The length of the text's beginning that is pure ASCII.
std::size_t AsciiLength(std::string_view text);

/// UTF-16 as UTF-8; U+FFFD for each half of a pair that stands alone.
std::string FromUtf16(std::u16string_view units);

/// The system's wide text as UTF-8: UTF-16 on Windows, a code point a unit on Linux.
std::string FromWide(std::wstring_view wide);

}  // namespace panelkit
