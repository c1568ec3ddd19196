#include "platform/windows/files.h"

#include <windows.h>

#include "platform/windows/file_content.h"
#include "platform/windows/handle.h"
#include "platform/windows/paths.h"

namespace panelkit::windows {
namespace {

/// MakeFolder's number for failures that the program does not tell apart.
constexpr int kOtherFailure = 57;

constexpr DWORD kHiddenOrSystem = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

/// INVALID_FILE_ATTRIBUTES where nothing has that name.
DWORD Attributes(const std::wstring& path) {
  return path.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(path.c_str());
}

bool Reach(const Handle& file, BY_HANDLE_FILE_INFORMATION& information) {
  return file && GetFileInformationByHandle(file.Get(), &information) != 0;
}

bool SameFile(const std::wstring& path, const std::wstring& other) {
  // Both stay open: only then are the two numbers comparable.
  const Handle first = OpenAny(path);
  const Handle second = OpenAny(other);
  BY_HANDLE_FILE_INFORMATION a{};
  BY_HANDLE_FILE_INFORMATION b{};
  return Reach(first, a) && Reach(second, b) && a.dwVolumeSerialNumber == b.dwVolumeSerialNumber &&
         a.nFileIndexHigh == b.nFileIndexHigh && a.nFileIndexLow == b.nFileIndexLow;
}

/// Has a copy reach the disk; a read-only one is opened for the length of the call.
bool FlushCopy(const std::wstring& path) {
  const DWORD attributes = Attributes(path);
  const bool read_only = (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  if (read_only) SetFileAttributesW(path.c_str(), attributes & ~FILE_ATTRIBUTE_READONLY);
  bool flushed = false;
  {
    const Handle file(CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    flushed = file && FlushFileBuffers(file.Get()) != 0;
  }
  if (read_only) SetFileAttributesW(path.c_str(), attributes);
  return flushed;
}

/// Read-only, hidden and system files stop a call that would replace them.
void MakeReplaceable(const std::wstring& path) {
  const DWORD attributes = Attributes(path);
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return;
  if ((attributes & (FILE_ATTRIBUTE_READONLY | kHiddenOrSystem)) != 0) {
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  }
}

bool Move(const std::wstring& from, const std::wstring& to) {
  return MoveFileExW(from.c_str(), to.c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

}  // namespace

bool WindowsFiles::IsFolder(std::string_view path) const {
  const DWORD attributes = Attributes(FilePath(path));
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool WindowsFiles::IsPlainFile(std::string_view path) const {
  const DWORD attributes = Attributes(FilePath(path));
  return attributes != INVALID_FILE_ATTRIBUTES &&
         (attributes & (FILE_ATTRIBUTE_DIRECTORY | kHiddenOrSystem)) == 0;
}

bool WindowsFiles::Exists(std::string_view path) const {
  return Attributes(FilePath(path)) != INVALID_FILE_ATTRIBUTES;
}

bool WindowsFiles::IsSame(std::string_view path, std::string_view other) const {
  return SameFile(FilePath(path), FilePath(other));
}

bool WindowsFiles::IsLink(std::string_view path) const {
  const DWORD attributes = Attributes(FilePath(path));
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

std::string WindowsFiles::UserFolder() const {
  return {};
}

FileContent WindowsFiles::Read(std::string_view path) const {
  auto bytes = ReadContent(FilePath(path));
  const FileFault fault = bytes ? FileFault::None : FileFault::Other;
  return {std::move(bytes), fault};
}

FileFault WindowsFiles::Replace(std::string_view path, std::string_view bytes,
                                Durability durability) {
  return ReplaceContent(FilePath(path), bytes, durability) ? FileFault::None : FileFault::Other;
}

int WindowsFiles::MakeFolder(std::string_view path) {
  const std::wstring folder = FilePath(path);
  if (folder.empty()) return kOtherFailure;
  if (CreateDirectoryW(folder.c_str(), nullptr)) return kFolderCreated;
  switch (GetLastError()) {
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
    case ERROR_ACCESS_DENIED:
      return kFolderExistsOrNoAccess;
    case ERROR_PATH_NOT_FOUND:
      return kFolderParentMissing;
    default:
      return kOtherFailure;
  }
}

bool WindowsFiles::Copy(std::string_view source, std::string_view target) {
  const std::wstring from = FilePath(source);
  const std::wstring to = FilePath(target);
  if (from.empty() || to.empty() || SameFile(from, to)) return false;
  MakeReplaceable(to);
  if (CopyFileW(from.c_str(), to.c_str(), FALSE) && FlushCopy(to)) return true;
  MakeReplaceable(to);
  DeleteFileW(to.c_str());
  return false;
}

bool WindowsFiles::Rename(std::string_view from, std::string_view to) {
  const std::wstring source = FilePath(from);
  const std::wstring target = FilePath(to);
  if (source.empty() || target.empty()) return false;
  if (!SameFile(source, target)) MakeReplaceable(target);
  if (!Move(source, target)) return false;
  if (SpelledAsOnDisk(target) == target) return true;
  // Wine leaves the spelling of a file that gave way.
  const std::wstring between = TemporaryName(target);
  return Move(target, between) && Move(between, target);
}

bool WindowsFiles::Delete(std::string_view path) {
  const std::wstring file = FilePath(path);
  const DWORD attributes = Attributes(file);
  if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ||
      !SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL)) {
    return false;
  }
  if (DeleteFileW(file.c_str())) return true;
  SetFileAttributesW(file.c_str(), attributes);
  return false;
}

}  // namespace panelkit::windows
