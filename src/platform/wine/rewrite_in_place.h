// New content for a file that must stay the file it is: of another owner or group, or in a folder
// that takes no new file. All paths are native.
#pragma once

#include <string>
#include <string_view>

#include "platform/files.h"

namespace panelkit {

/// Writes `bytes` over the content of the plain file `path`. With Durability::Flushed, its old and
/// new content are kept in a record, a file "rewrite-..." in the folder `records`, from before the
/// first byte changes until the new content is on the disk; without a record nothing is written.
/// On any fault then the old content is written back. With Durability::Buffered a fault, or a kill,
/// may leave part of the content.
FileFault RewriteInPlace(const std::string& path, std::string_view bytes, Durability durability,
                         const std::string& records);

/// Finishes the rewrites whose records stopped processes left in the folder `records`: a file that
/// holds parts of both contents gets the new one. One that is not there, or that another program
/// has changed since, stays as it is, and so does its record, for the user; the other records go.
void FinishRewrites(const std::string& records);

}  // namespace panelkit
