// Files by path of FilePath: the few steps that the back end needs of the system.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files.h"
#include "platform/windows/file_errors.h"
#include "platform/windows/handle.h"

namespace panelkit::windows {

/// Others may read, write, rename and delete what is open.
inline constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

/// The attributes of files that listings leave out.
inline constexpr DWORD kHiddenOrSystem = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

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

/// The entries that a path or pattern names, in the disk's order; nullopt, with GetLastError set,
/// if there is none or its folder cannot be read to its end.
std::optional<std::vector<WIN32_FIND_DATAW>> Find(const std::wstring& pattern);

/// Whether an entry stands for another file or folder, as symbolic links and junctions do. Other
/// reparse points, such as those of what lies in a cloud, are no links.
bool IsLink(const WIN32_FIND_DATAW& entry);

/// The same for the last name of `path`.
bool IsLink(const std::wstring& path);

/// A path with the case of its last name as the disk has it; the path itself if nothing has that
/// name.
std::wstring SpelledAsOnDisk(const std::wstring& path);

/// The path of an open file behind all links and replaced drives, as "\\?\C:\x"; empty if it has
/// none, or on a Windows before Vista.
std::wstring FinalPath(const Handle& file);

/// Whether both paths reach the same file or folder.
bool IsSameFile(const std::wstring& path, const std::wstring& other);

/// Likewise for open files. Where a network drive numbers all its files alike, their final paths
/// tell them apart.
bool IsSameFile(const Handle& file, const Handle& other);

/// Writes all bytes at the file's present position. False, with GetLastError set, on failure.
bool WriteAll(HANDLE file, std::string_view bytes);

/// As Files::Read.
FileContent ReadPlainFile(const std::wstring& path, const ShortLocks& locks);

}  // namespace panelkit::windows
