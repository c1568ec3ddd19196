// Paths as the wide file calls take them.
#pragma once

#include <string>
#include <string_view>

namespace panelkit::windows {

/// The whole, normalised form of a path, relative ones seen from the current folder. Empty for what
/// names no file or folder: nothing at all, a text with an inner NUL, a device such as CON.
std::wstring FullPath(std::string_view path);

/// The same, freed from the limit of 260 characters where it is longer.
std::wstring FilePath(std::string_view path);

/// A path of FilePath with the case of its last name as the disk has it; the path itself where
/// nothing has that name.
std::wstring SpelledAsOnDisk(const std::wstring& path);

/// A name for a temporary file in the folder of a path of FilePath, unlike any in use.
std::wstring TemporaryName(const std::wstring& path);

/// The folder that holds the running executable, without a closing backslash.
std::string FolderOfProgram();

}  // namespace panelkit::windows
