// Files by path of FilePath: the few steps that the back end needs of the system.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/windows/file_errors.h"
#include "platform/windows/handle.h"

namespace panelkit::windows {

/// Others may read, write, rename and delete what is open.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The file's attributes; INVALID_FILE_ATTRIBUTES, with GetLastError set, if nothing has that name.
DWORD AttributesOf(const std::wstring& path);

/// Whether the attributes are those of something there that has one of `wanted`.
bool Has(DWORD attributes, DWORD wanted);

/// Opens an existing file, shared with everyone; links are followed. No handle, with GetLastError
/// set, if it cannot be opened: ERROR_DIRECTORY for a folder, unless `flags` ask for one.
Handle Open(const std::wstring& path, DWORD access, DWORD flags);

/// Opens a file or folder for its attributes alone, which no other program's use prevents. No
/// handle if `path` is empty or names nothing.
Handle OpenAny(const std::wstring& path);

/// Whether the last name of `path` is a symbolic link or a junction. Other reparse points, such as
/// those of files that lie in a cloud, are no links.
bool IsLink(const std::wstring& path);

/// Whether both paths reach the same file or folder.
bool IsSameFile(const std::wstring& path, const std::wstring& other);

/// Writes all bytes at the file's present position. False, with GetLastError set, on failure.
bool WriteAll(HANDLE file, std::string_view bytes);

/// As Files::Read.
FileContent ReadPlainFile(const std::wstring& path, const ShortLocks& locks);

}  // namespace panelkit::windows
