#include "platform/win32/navigation_policy.h"

#include <windows.h>

#include <shlwapi.h>

#include <algorithm>
#include <array>

namespace panelkit::windows {
namespace {

/// Longer addresses are none to the browser control either.
constexpr std::size_t kLongestUrl = 2084;

bool StartsWith(std::wstring_view text, std::wstring_view start) {
  return text.size() >= start.size() &&
         CompareStringW(LOCALE_INVARIANT, NORM_IGNORECASE, text.data(),
                        static_cast<int>(start.size()), start.data(),
                        static_cast<int>(start.size())) == CSTR_EQUAL;
}

/// The path that an address names, in one spelling for all that reach the same file.
std::wstring FileOf(std::wstring_view address) {
  std::wstring path(address);
  if (StartsWith(address, L"file:")) {
    path.resize(std::min(path.find(L'#'), path.size()));
    std::array<wchar_t, kLongestUrl> buffer{};
    auto size = static_cast<DWORD>(buffer.size());
    if (FAILED(PathCreateFromUrlW(path.c_str(), buffer.data(), &size, 0))) return {};
    path = buffer.data();
  }
  CharLowerBuffW(path.data(), static_cast<DWORD>(path.size()));
  return path;
}

}  // namespace

void NavigationPolicy::Admit(std::wstring_view path) {
  files_.insert(FileOf(path));
}

bool NavigationPolicy::MayLoad(std::wstring_view address) const {
  return IsWebAddress(address) || address == L"about:blank" || StartsWith(address, L"res:") ||
         files_.contains(FileOf(address));
}

bool IsWebAddress(std::wstring_view text) {
  return StartsWith(text, L"http://") || StartsWith(text, L"https://");
}

}  // namespace panelkit::windows
