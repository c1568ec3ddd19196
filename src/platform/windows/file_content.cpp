#include "platform/windows/file_content.h"

#include <windows.h>

#include <algorithm>

#include "platform/windows/paths.h"
#include "platform/windows/system_library.h"

namespace panelkit::windows {
namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// Attributes that a rewritten file keeps.
constexpr DWORD kKeptAttributes = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM |
                                  FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_NOT_CONTENT_INDEXED;

/// The bytes that one read or write moves at most.
constexpr std::size_t kBlock = std::size_t{1} << 20;

Handle Open(const std::wstring& path, DWORD access, DWORD flags) {
  return Handle(path.empty() ? nullptr
                             : CreateFileW(path.c_str(), access, kShareAll, nullptr, OPEN_EXISTING,
                                           flags, nullptr));
}

/// A new file, removed at the end unless it was moved away or is kept.
class TemporaryFile {
 public:
  TemporaryFile(std::wstring name, DWORD attributes)
      : name_(std::move(name)),
        file_(
            CreateFileW(name_.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, attributes, nullptr)),
        discard_(static_cast<bool>(file_)) {}
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    file_.Close();
    if (discard_) DeleteFileW(name_.c_str());
  }

  const std::wstring& Name() const { return name_; }

  /// Writes the whole content and closes the file.
  bool Fill(std::string_view bytes, Durability durability) {
    if (!file_) return false;
    while (!bytes.empty()) {
      DWORD written = 0;
      const auto block = static_cast<DWORD>(std::min(bytes.size(), kBlock));
      if (!WriteFile(file_.Get(), bytes.data(), block, &written, nullptr)) return false;
      bytes.remove_prefix(written);
    }
    if (durability == Durability::Flushed && !FlushFileBuffers(file_.Get())) return false;
    file_.Close();
    return true;
  }

  void Keep() { discard_ = false; }

 private:
  std::wstring name_;
  Handle file_;
  bool discard_;
};

/// Where a link ends. A Windows that lacks the call has no links of files either.
std::wstring BehindLinks(const std::wstring& path) {
  const auto final_path = SystemCall<DWORD WINAPI(HANDLE, LPWSTR, DWORD, DWORD)>(
      L"kernel32.dll", "GetFinalPathNameByHandleW");
  const Handle file = OpenAny(path);
  if (final_path == nullptr || !file) return path;
  std::wstring end(final_path(file.Get(), nullptr, 0, 0), L'\0');
  end.resize(final_path(file.Get(), end.data(), static_cast<DWORD>(end.size()), 0));
  return end.empty() ? path : end;
}

bool IsGone(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES;
}

/// Puts the new file in the old one's place.
bool TakePlace(TemporaryFile& replacement, const std::wstring& path) {
  const wchar_t* name = replacement.Name().c_str();
  if (ReplaceFileW(path.c_str(), name, nullptr, REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr,
                   nullptr)) {
    return true;
  }
  // The call may give up half way, with the old file gone; and some file systems do not know it.
  const DWORD error = GetLastError();
  const bool may_move =
      IsGone(path) || error == ERROR_INVALID_FUNCTION || error == ERROR_NOT_SUPPORTED;
  if (may_move &&
      MoveFileExW(name, path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH)) {
    return true;
  }
  // Then the only whole content is the new one.
  if (IsGone(path)) replacement.Keep();
  return false;
}

bool CreateContent(const std::wstring& path, std::string_view bytes, Durability durability) {
  TemporaryFile file(TemporaryName(path), FILE_ATTRIBUTE_NORMAL);
  return file.Fill(bytes, durability) &&
         MoveFileExW(file.Name().c_str(), path.c_str(), MOVEFILE_WRITE_THROUGH) != 0;
}

}  // namespace

Handle OpenAny(const std::wstring& path) {
  return Open(path, 0, FILE_FLAG_BACKUP_SEMANTICS);
}

std::optional<std::string> ReadContent(const std::wstring& path) {
  const Handle file = Open(path, GENERIC_READ, FILE_FLAG_SEQUENTIAL_SCAN);
  LARGE_INTEGER size{};
  if (!file || GetFileType(file.Get()) != FILE_TYPE_DISK || !GetFileSizeEx(file.Get(), &size) ||
      size.QuadPart > static_cast<LONGLONG>(kLargestFile)) {
    return std::nullopt;
  }
  std::string bytes(static_cast<std::size_t>(size.QuadPart), '\0');
  std::size_t filled = 0;
  while (filled < bytes.size()) {
    DWORD read = 0;
    const auto block = static_cast<DWORD>(std::min(bytes.size() - filled, kBlock));
    if (!ReadFile(file.Get(), bytes.data() + filled, block, &read, nullptr)) return std::nullopt;
    if (read == 0) break;
    filled += read;
  }
  bytes.resize(filled);
  return bytes;
}

bool ReplaceContent(const std::wstring& path, std::string_view bytes, Durability durability) {
  if (path.empty()) return false;
  const DWORD attributes = GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return CreateContent(path, bytes, durability);

  // A file that could not be opened for writing is not to be replaced either: read-only, closed to
  // us, in use, or a folder.
  if (!Open(path, GENERIC_WRITE, FILE_ATTRIBUTE_NORMAL)) return false;
  const bool is_link = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  const std::wstring target = SpelledAsOnDisk(is_link ? BehindLinks(path) : path);
  const DWORD kept = is_link ? GetFileAttributesW(target.c_str()) : attributes;
  TemporaryFile file(TemporaryName(target), kept & kKeptAttributes);
  return file.Fill(bytes, durability) && TakePlace(file, target);
}

}  // namespace panelkit::windows
