// Writing files so that no half-written one is ever seen under its name. All paths are native.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace panelkit {

/// Puts `bytes` into the file at `target` (a link leads on to the file that it names), or into a
/// new one: writes a temporary file beside it, gives that the old file's owner, permissions and
/// extended attributes, and renames it into place. False, with the old file as it was and no
/// temporary left, where the old one is read-only or not ours to write, no plain file, its owner
/// cannot be kept, or the writing fails.
bool ReplaceFile(const std::string& target, std::string_view bytes, Durability durability);

/// Makes `target` a copy of the plain file `source` with its time stamp, permissions and, where the
/// disk takes them, extended attributes, flushed to the disk. A file or link at `target` gives way.
/// False, without a partial target, on failure and where another program is writing the source;
/// what stood at `target` stays where the source cannot be opened.
bool CopyFile(const std::string& source, const std::string& target);

}  // namespace panelkit
