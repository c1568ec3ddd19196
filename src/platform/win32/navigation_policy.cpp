#include "platform/win32/navigation_policy.h"

#include <windows.h>

#include <shlwapi.h>

#include <algorithm>
#include <array>

#include "platform/browser.h"
#include "platform/windows/wide.h"

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

std::wstring Lowered(std::wstring_view text) {
  std::wstring lowered(text);
  CharLowerBuffW(lowered.data(), static_cast<DWORD>(lowered.size()));
  return lowered;
}

/// The path that an address names, in one spelling for all that reach the same file.
std::wstring FileOf(std::wstring_view address) {
  if (!StartsWith(address, L"file:")) return Lowered(address);
  std::wstring url(address);
  url.resize(std::min(url.find(L'#'), url.size()));
  std::array<wchar_t, kLongestUrl> path{};
  auto size = static_cast<DWORD>(path.size());
  if (FAILED(PathCreateFromUrlW(url.c_str(), path.data(), &size, 0))) return {};
  return Lowered(path.data());
}

/// The pages that the browser control shows when it cannot load one: resources of its library,
/// which may be named by its path in the system folder.
bool IsErrorPage(std::wstring_view address) {
  constexpr std::wstring_view kResource = L"res://";
  if (!StartsWith(address, kResource)) return false;
  std::wstring rest = Lowered(address.substr(kResource.size()));
  std::array<wchar_t, MAX_PATH> folder{};
  const std::size_t size = GetSystemDirectoryW(folder.data(), MAX_PATH);
  const std::wstring system = Lowered({folder.data(), size}) + L'\\';
  if (rest.starts_with(system)) rest.erase(0, system.size());
  return rest.starts_with(L"ieframe.dll/") || rest.starts_with(L"shdoclc.dll/");
}

}  // namespace

void NavigationPolicy::Admit(std::wstring_view address) {
  const std::lock_guard lock(mutex_);
  if (IsWebAddress(address)) {
    asked_for_ = address;
    return;
  }
  asked_for_.clear();
  const std::wstring page = FileOf(address);
  pages_.insert(page);
  for (const std::string_view picture : kPagePictures) {
    pictures_.insert(page.substr(0, page.rfind(L'\\') + 1) + Wide(picture));
  }
}

bool NavigationPolicy::MayShow(std::wstring_view address, bool user_acted) const {
  const std::lock_guard lock(mutex_);
  if (address == L"about:blank" || IsErrorPage(address) || pages_.contains(FileOf(address))) {
    return true;
  }
  return IsWebAddress(address) && (!shows_page_file_ || user_acted || !asked_for_.empty());
}

bool NavigationPolicy::MayShowInFrame(std::wstring_view address) const {
  const std::lock_guard lock(mutex_);
  return !shows_page_file_ && (IsWebAddress(address) || address == L"about:blank");
}

void NavigationPolicy::Going(std::wstring_view address) {
  const std::lock_guard lock(mutex_);
  shows_page_file_ = !IsWebAddress(address) && !IsErrorPage(address);
  asked_for_.clear();
}

bool NavigationPolicy::ShowsPageFile() const {
  const std::lock_guard lock(mutex_);
  return shows_page_file_;
}

bool NavigationPolicy::MayFetch(std::wstring_view address) const {
  const std::lock_guard lock(mutex_);
  if (!shows_page_file_) return true;
  const std::wstring file = FileOf(address);
  return pages_.contains(file) || pictures_.contains(file);
}

bool IsWebAddress(std::wstring_view text) {
  return StartsWith(text, L"http://") || StartsWith(text, L"https://");
}

}  // namespace panelkit::windows
