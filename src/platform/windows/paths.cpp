#include "platform/windows/paths.h"

#include <windows.h>

#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

/// Longer paths are given in the form without a limit: well below 260, so that a temporary name
/// fits beside every file.
constexpr std::size_t kPlainLimit = 200;

/// What stands before a path without that limit; the second form for one on a server.
constexpr std::wstring_view kFree = LR"(\\?\)";
constexpr std::wstring_view kFreeShare = LR"(\\?\UNC\)";

}  // namespace

std::wstring FullPath(std::string_view path) {
  const std::wstring wide = Wide(path);
  if (wide.empty() || wide.find(L'\0') != std::wstring::npos) return {};
  std::wstring full(GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(
      GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
  if (full.starts_with(L"\\\\.\\")) return {};
  return full;
}

std::wstring FilePath(std::string_view path) {
  std::wstring full = FullPath(path);
  if (full.size() < kPlainLimit || full.starts_with(kFree)) return full;
  if (full.starts_with(L"\\\\")) return std::wstring(kFreeShare) + full.substr(2);
  return std::wstring(kFree) + full;
}

std::wstring PlainForm(const std::wstring& path) {
  if (path.starts_with(kFreeShare)) return L"\\\\" + path.substr(kFreeShare.size());
  if (path.starts_with(kFree)) return path.substr(kFree.size());
  return path;
}

std::string FolderOfProgram() {
  std::wstring file(MAX_PATH, L'\0');
  for (;;) {
    const DWORD length = GetModuleFileNameW(nullptr, file.data(), static_cast<DWORD>(file.size()));
    if (length < file.size()) {
      file.resize(length);
      break;
    }
    file.resize(file.size() * 2);
  }
  file = PlainForm(file);
  return Utf8(std::wstring_view(file).substr(0, file.rfind(L'\\')));
}

}  // namespace panelkit::windows
