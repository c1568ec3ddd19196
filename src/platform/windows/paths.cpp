#include "platform/windows/paths.h"

#include <windows.h>

#include "platform/windows/wide.h"

namespace panelkit::windows {
namespace {

/// Longer paths are given in the form without a limit: well below 260, so that a temporary name
/// fits beside every file.
constexpr std::size_t kPlainLimit = 200;

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
  if (full.size() < kPlainLimit || full.starts_with(L"\\\\?\\")) return full;
  if (full.starts_with(L"\\\\")) return L"\\\\?\\UNC" + full.substr(1);
  return L"\\\\?\\" + full;
}

std::wstring SpelledAsOnDisk(const std::wstring& path) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return path;
  FindClose(search);
  return path.substr(0, path.rfind(L'\\') + 1) + found.cFileName;
}

std::wstring TemporaryName(const std::wstring& path) {
  return path + L"." + std::to_wstring(GetCurrentProcessId()) + L"-" +
         std::to_wstring(GetTickCount()) + L".tmp";
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
  if (file.starts_with(L"\\\\?\\")) file.erase(0, 4);
  return Utf8(std::wstring_view(file).substr(0, file.rfind(L'\\')));
}

}  // namespace panelkit::windows
