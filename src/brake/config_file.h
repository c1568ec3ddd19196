// The simulator's configuration file on disk, whole again after a kill at any moment.
#pragma once

#include <string>

#include "platform/files.h"

namespace panelkit {

/// The content of the file at `path`. A rewrite that a killed run left half done is finished first;
/// the fault is why it could not be.
FileContent ReadConfig(Files& files, const std::string& path);

/// Gives the file, which holds `before`, the content `after`, in one step or, if it may be written
/// but not replaced, in place. Then both contents stand in a record, "fs2002-NUMBER.rewrite" in
/// Files::AppFolder, until the new one is on the disk. If no record can be made the file stays as
/// it was; on any other fault it gets its old content back or, if that fails too, the next
/// ReadConfig finishes the rewrite. A record stays that long if another program has changed the
/// file since; the next rewrite removes it.
FileFault RewriteConfig(Files& files, const std::string& path, const std::string& before,
                        const std::string& after);

}  // namespace panelkit
