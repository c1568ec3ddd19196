#include "platform/windows/native_file.h"

#include <algorithm>

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

bool IsLink(const std::wstring& path) {
  if (!Has(AttributesOf(path), FILE_ATTRIBUTE_REPARSE_POINT)) return false;
  WIN32_FIND_DATAW found{};
  const HANDLE search = FindFirstFileW(path.c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return found.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
         found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT;
}

bool IsSameFile(const std::wstring& path, const std::wstring& other) {
  // Both stay open: only then are the two numbers comparable.
  const Handle first = OpenAny(path);
  const Handle second = OpenAny(other);
  BY_HANDLE_FILE_INFORMATION a{};
  BY_HANDLE_FILE_INFORMATION b{};
  return GetInformation(first, a) && GetInformation(second, b) &&
         a.dwVolumeSerialNumber == b.dwVolumeSerialNumber && a.nFileIndexHigh == b.nFileIndexHigh &&
         a.nFileIndexLow == b.nFileIndexLow;
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
