// Paths as the wide file calls take them.
#pragma once

#include <string>
#include <string_view>

namespace panelkit::windows {

/// The whole, normalised form of a path, relative ones seen from the current folder. Empty for what
/// names no file or folder: an empty text, one with an inner NUL, a device such as CON.
std::wstring FullPath(std::string_view path);

/// The same, freed from the limit of 260 characters by a "\\?\" if it comes near it.
std::wstring FilePath(std::string_view path);

/// A path without the "\\?\" that frees it from the limit of 260 characters: "\\?\C:\x" is "C:\x",
/// "\\?\UNC\server\x" is "\\server\x".
std::wstring PlainForm(const std::wstring& path);

/// The folder that holds the running executable, without a closing backslash.
std::string FolderOfProgram();

}  // namespace panelkit::windows
