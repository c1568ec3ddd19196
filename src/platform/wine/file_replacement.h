// Writing files so that no half-written one is ever seen under its name. All paths are native.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace panelkit {

/// Puts `bytes` into the file at `target` (a link leads on to the file that it names), or into a
/// new one: writes a temporary file beside it, gives that the old file's owner, permissions and
/// extended attributes, and renames it into place. On a fault the old file is as it was and no
/// temporary is left: Irreplaceable if the old file's owner or its place allows no such thing but
/// its content may be written.
FileFault ReplaceFile(const std::string& target, std::string_view bytes, Durability durability);

/// As Files::Overwrite.
FileFault OverwriteFile(const std::string& path, std::string_view bytes);

/// Makes `target` a copy of the plain file `source` with its time stamp, permissions and, where the
/// disk takes them, extended attributes, flushed to the disk. A file or link at `target` gives way.
/// False, without a partial target, on failure and where another program is writing the source;
/// what stood at `target` stays where the source cannot be opened.
bool CopyFile(const std::string& source, const std::string& target);

}  // namespace panelkit
