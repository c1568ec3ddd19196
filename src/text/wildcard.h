// File name patterns, the same on every system.
#pragma once

#include <string_view>

namespace panelkit {

/// Whether `name` matches `pattern`, both with their case already folded alike: "*" stands for any
/// run of characters, "?" for one byte, and "*.*" matches names without a dot too. Looks at the
/// long name only, so that "*.gau" never finds "x.gau_old" by a short name.
bool MatchesWildcard(std::string_view pattern, std::string_view name);

}  // namespace panelkit
