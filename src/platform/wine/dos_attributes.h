// The attributes of Windows files, as Wine keeps them on a Linux disk.
#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/wine/native_file.h"

namespace panelkit {

/// Whether the file is hidden or a system file: by its extended attribute "user.DOSATTRIB" (Wine's
/// and Samba's text form, "0x22": 2 is hidden, 4 is system), or by a name that begins with a dot.
bool IsHiddenOrSystem(const std::string& native_path);

/// Whether the file is read-only to Windows: nobody may write to it.
bool IsReadOnly(const struct stat& status);

}  // namespace panelkit
