// UTF-8, the program's text, to UTF-16, Windows' text, and back.
#pragma once

#include <string>
#include <string_view>

namespace panelkit::windows {

/// Bytes that are no UTF-8 become U+FFFD.
std::wstring Wide(std::string_view text);

/// Half a surrogate pair becomes U+FFFD.
std::string Utf8(std::wstring_view text);

}  // namespace panelkit::windows
