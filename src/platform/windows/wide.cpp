#include "platform/windows/wide.h"

#include <windows.h>

namespace panelkit::windows {

std::wstring Wide(std::string_view text) {
  const int bytes = static_cast<int>(text.size());
  std::wstring wide(MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, nullptr, 0), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, text.data(), bytes, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string Utf8(std::wstring_view text) {
  const int units = static_cast<int>(text.size());
  std::string narrow(
      WideCharToMultiByte(CP_UTF8, 0, text.data(), units, nullptr, 0, nullptr, nullptr), '\0');
  WideCharToMultiByte(CP_UTF8, 0, text.data(), units, narrow.data(),
                      static_cast<int>(narrow.size()), nullptr, nullptr);
  return narrow;
}

}  // namespace panelkit::windows
