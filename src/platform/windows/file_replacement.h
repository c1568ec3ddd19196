// Giving a file new content so that no half-written one is seen or left under its name.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/windows/file_errors.h"

namespace panelkit::windows {

/// As Files::Replace, for a path of FilePath. The new content goes to a temporary file beside the
/// old one, which takes over its owner, access rights, attributes and creation time and then its
/// name, in one step. Irreplaceable where the folder, or whoever holds the file, allows no such
/// step though the file may be written.
FileFault ReplaceContent(const std::wstring& path, std::string_view bytes, Durability durability,
                         const ShortLocks& locks);

/// As Files::Overwrite, for a path of FilePath.
FileFault OverwriteContent(const std::wstring& path, std::string_view bytes,
                           const ShortLocks& locks);

/// As Files::Copy, for paths of FilePath; but the copy's access rights are those that its folder
/// hands down. A copy that only this user would see counts as a failure.
bool CopyPlainFile(const std::wstring& source, const std::wstring& target, const ShortLocks& locks);

/// Gives the file `from` the name `to`, in one step and in place of a plain file there, read-only
/// or not. False, with GetLastError set, if it cannot.
bool MoveOver(const std::wstring& from, const std::wstring& to, const ShortLocks& locks);

}  // namespace panelkit::windows
