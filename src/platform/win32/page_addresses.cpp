#include "platform/win32/page_addresses.h"

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

std::wstring Lowered(std::wstring_view text) {
  std::wstring lowered(text);
  CharLowerBuffW(lowered.data(), static_cast<DWORD>(lowered.size()));
  return lowered;
}

/// The path that an address names, in one spelling for all that reach the same file; any other
/// address in lower case.
std::wstring FileOf(std::wstring_view address) {
  std::wstring url = Lowered(address);
  if (!url.starts_with(L"file:")) return url;
  url.resize(std::min(url.find(L'#'), url.size()));
  std::array<wchar_t, kLongestUrl> path{};
  auto size = static_cast<DWORD>(path.size());
  if (FAILED(PathCreateFromUrlW(url.c_str(), path.data(), &size, 0))) return {};
  return Lowered(path.data());
}

/// Whether a lowered address is a resource of one of the libraries that the browser control shows
/// its errors and its print pages from, which may be named by its path in the system folder.
bool IsSystemResource(std::wstring_view address) {
  constexpr std::wstring_view kResource = L"res://";
  if (!address.starts_with(kResource)) return false;
  address.remove_prefix(kResource.size());
  std::array<wchar_t, MAX_PATH> folder{};
  const std::size_t size = GetSystemDirectoryW(folder.data(), MAX_PATH);
  const std::wstring system = Lowered({folder.data(), size}) + L'\\';
  if (address.starts_with(system)) address.remove_prefix(system.size());
  return address.starts_with(L"ieframe.dll/") || address.starts_with(L"mshtml.dll/") ||
         address.starts_with(L"shdoclc.dll/");
}

/// Whether a file is a page in the user's temporary folder, as the control makes one to print.
bool IsPrintedCopy(const std::wstring& file) {
  std::array<wchar_t, MAX_PATH + 1> folder{};
  const std::size_t size = GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
  const std::wstring temporary = Lowered({folder.data(), size});
  return temporary.size() > 3 && temporary[1] == L':' &&
         GetDriveTypeW(temporary.substr(0, 3).c_str()) != DRIVE_REMOTE &&
         file.starts_with(temporary) && file.ends_with(L".htm") &&
         file.find(L"\\..") == std::wstring::npos;
}

}  // namespace

void PageAddresses::Add(std::wstring_view path) {
  const std::lock_guard lock(mutex_);
  const std::wstring page = FileOf(path);
  pages_.insert(page);
  for (const std::string_view picture : kPagePictures) {
    pictures_.insert(page.substr(0, page.rfind(L'\\') + 1) + Wide(picture));
  }
}

LoadRequest PageAddresses::Load(std::wstring_view address, Place place, bool by_user) const {
  const std::lock_guard lock(mutex_);
  const std::wstring file = FileOf(address);
  const bool is_empty = file == L"about:blank";
  LoadRequest load{Utf8(file), Target::Other, place, by_user};
  if (IsWebAddress(load.address)) {
    load.target = Target::Web;
  } else if (is_empty && place == Place::Frame) {
    load.target = Target::Inline;
  } else if (is_empty || pages_.contains(file)) {  // Empty pages are filled from memory.
    load.target = Target::OwnPage;
  } else if (IsSystemResource(file)) {
    load.target = Target::ErrorPage;
  }
  return load;
}

bool PageAddresses::MayLoad(std::wstring_view address) const {
  const std::lock_guard lock(mutex_);
  const std::wstring file = FileOf(address);
  return pages_.contains(file) || pictures_.contains(file) || IsSystemResource(file) ||
         IsPrintedCopy(file);
}

}  // namespace panelkit::windows
