// Safety of a cabinet entry's name as a path on disk.
#pragma once

#include <string_view>

namespace panelkit {

/// True if `name` (folders separated by backslashes), joined to a folder, names a file below that
/// folder on every system: no empty part (so no leading or trailing separator), no "." or "..", no
/// "/", no drive or stream colon, no part that ends in a dot or a blank (Windows drops both, so it
/// would name another file), and no device of Windows such as "NUL" or "com1.gau".
bool IsSafeEntryName(std::string_view name);

}  // namespace panelkit
