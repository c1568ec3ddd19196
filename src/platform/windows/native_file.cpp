#include "platform/windows/native_file.h"

#include <algorithm>

#include "platform/windows/system_library.h"

namespace panelkit::windows {
namespace {

/// The bytes that one read or write moves at most.
constexpr std::size_t kBlock = std::size_t{1} << 20;

FileContent Unread(DWORD error) {
  return {std::nullopt, FaultOf(error)};
}

bool GetInformation(const Handle& file, BY_HANDLE_FILE_INFORMATION& information) {
  return file && GetFileInformationByHandle(file.Get(), &information) != 0;
}

/// "\\?\C:" or "\\?\UNC\server\share" of a final path.
std::wstring_view RootOf(std::wstring_view path) {
  std::size_t end = 3;
  for (int parts = path.starts_with(L"\\\\?\\UNC\\") ? 3 : 1; parts > 0; --parts) {
    end = std::min(path.find(L'\\', end + 1), path.size());
  }
  return path.substr(0, end);
}

}  // namespace

DWORD AttributesOf(const std::wstring& path) {
  if (!path.empty()) return GetFileAttributesW(path.c_str());
  SetLastError(ERROR_FILE_NOT_FOUND);
  return INVALID_FILE_ATTRIBUTES;
}

bool Has(DWORD attributes, DWORD wanted) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) != 0;
}

Handle Open(const std::wstring& path, DWORD access, DWORD flags) {
  if (path.empty()) SetLastError(ERROR_FILE_NOT_FOUND);
  Handle file(path.empty() ? nullptr
                           : CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                                         flags, nullptr));
  // The system calls it a denied access, which would be waited for.
  if (!file && GetLastError() == ERROR_ACCESS_DENIED) {
    const bool is_folder = Has(AttributesOf(path), FILE_ATTRIBUTE_DIRECTORY);
    SetLastError(is_folder ? ERROR_DIRECTORY : ERROR_ACCESS_DENIED);
  }
  return file;
}

Handle OpenAny(const std::wstring& path) {
  return Open(path, 0, FILE_FLAG_BACKUP_SEMANTICS);
}

std::optional<std::vector<WIN32_FIND_DATAW>> Find(const std::wstring& pattern) {
  WIN32_FIND_DATAW entry{};
  const HANDLE search = FindFirstFileW(pattern.c_str(), &entry);
  if (search == INVALID_HANDLE_VALUE) return std::nullopt;
  std::vector<WIN32_FIND_DATAW> entries;
  do {
    entries.push_back(entry);
  } while (FindNextFileW(search, &entry));
  const DWORD error = GetLastError();
  FindClose(search);
  if (error == ERROR_NO_MORE_FILES) return entries;
  SetLastError(error);
  return std::nullopt;
}

bool IsLink(const WIN32_FIND_DATAW& entry) {
  return Has(entry.dwFileAttributes, FILE_ATTRIBUTE_REPARSE_POINT) &&
         IsReparseTagNameSurrogate(entry.dwReserved0);
}

bool IsLink(const std::wstring& path) {
  if (!Has(AttributesOf(path), FILE_ATTRIBUTE_REPARSE_POINT)) return false;
  const auto found = Find(path);
  return found && IsLink(found->front());
}

std::wstring SpelledAsOnDisk(const std::wstring& path) {
  const auto found = Find(path);
  return found ? path.substr(0, path.rfind(L'\\') + 1) + found->front().cFileName : path;
}

std::wstring FinalPath(const Handle& file) {
  const auto final_path = SystemCall<DWORD WINAPI(HANDLE, LPWSTR, DWORD, DWORD)>(
      L"kernel32.dll", "GetFinalPathNameByHandleW");
  if (final_path == nullptr || !file) return {};
  std::wstring path(final_path(file.Get(), nullptr, 0, 0), L'\0');
  path.resize(final_path(file.Get(), path.data(), static_cast<DWORD>(path.size()), 0));
  return path;
}

bool IsSameFile(const std::wstring& path, const std::wstring& other) {
  return IsSameFile(OpenAny(path), OpenAny(other));
}

bool IsSameFile(const Handle& file, const Handle& other) {
  BY_HANDLE_FILE_INFORMATION a{};
  BY_HANDLE_FILE_INFORMATION b{};
  if (!GetInformation(file, a) || !GetInformation(other, b) ||
      a.dwVolumeSerialNumber != b.dwVolumeSerialNumber || a.nFileIndexHigh != b.nFileIndexHigh ||
      a.nFileIndexLow != b.nFileIndexLow) {
    return false;
  }
  // By another drive or share, or another hard link, the same file has another path.
  const std::wstring path = FinalPath(file);
  const std::wstring other_path = FinalPath(other);
  return path == other_path || RootOf(path) != RootOf(other_path) ||
         (!Has(a.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY) && a.nNumberOfLinks > 1);
}

bool WriteAll(HANDLE file, std::string_view bytes) {
  while (!bytes.empty()) {
    DWORD written = 0;
    const auto block = static_cast<DWORD>(std::min(bytes.size(), kBlock));
    if (!WriteFile(file, bytes.data(), block, &written, nullptr)) return false;
    bytes.remove_prefix(written);
  }
  return true;
}

FileContent ReadPlainFile(const std::wstring& path, const ShortLocks& locks) {
  const Handle file =
      locks.Try([&path] { return Open(path, GENERIC_READ, FILE_FLAG_SEQUENTIAL_SCAN); });
  if (!file) return Unread(GetLastError());
  if (GetFileType(file.Get()) != FILE_TYPE_DISK) return {std::nullopt, FileFault::NotAFile};
  LARGE_INTEGER size{};
  if (!GetFileSizeEx(file.Get(), &size)) return Unread(GetLastError());
  if (size.QuadPart > static_cast<LONGLONG>(kLargestFile)) {
    return {std::nullopt, FileFault::TooLarge};
  }
  std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    DWORD read = 0;
    const auto block = static_cast<DWORD>(std::min(bytes.size() - filled, kBlock));
    if (!ReadFile(file.Get(), bytes.data() + filled, block, &read, nullptr)) {
      return Unread(GetLastError());
    }
    if (read == 0) break;
    filled += read;
  }
  bytes.resize(filled);
  return {std::move(bytes)};
}

}  // namespace panelkit::windows
