// UTF-8, code point by code point.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace panelkit::utf8 {

/// What Next gives for a byte that begins no valid sequence.
inline constexpr char32_t kInvalid = 0xFFFFFFFF;

/// The code point at `position`, which moves behind it; kInvalid, one byte further, for a byte that
/// begins no valid sequence (overlong forms and surrogates are none).
char32_t Next(std::string_view text, std::size_t& position);

/// Appends a code point; U+FFFD for one that UTF-8 cannot hold.
void Append(std::string& text, char32_t code_point);

/// Whether the whole text is valid.
bool IsValid(std::string_view text);

/// The length of the text's beginning that is pure ASCII.
std::size_t AsciiLength(std::string_view text);

/// UTF-16 as UTF-8; U+FFFD for each half of a pair that stands alone.
std::string FromUtf16(std::u16string_view units);

}  // namespace panelkit::utf8
