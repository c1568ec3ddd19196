// Reading a file whole and giving it new content in one step.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/files.h"
#include "platform/windows/handle.h"

namespace panelkit::windows {

/// Opens a file or folder for its attributes alone, which no other program's use prevents; links
/// are followed. No handle where `path` is empty or names nothing.
Handle OpenAny(const std::wstring& path);

/// As Files::Read, for a path of FilePath.
std::optional<std::string> ReadContent(const std::wstring& path);

/// As Files::Replace, for a path of FilePath.
bool ReplaceContent(const std::wstring& path, std::string_view bytes, Durability durability);

}  // namespace panelkit::windows
