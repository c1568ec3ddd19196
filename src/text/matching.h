// How texts are compared: with case ignored, and against file name patterns.
#pragma once

#include <string_view>

namespace panelkit {

/// Whether `text` equals `words`, case of ASCII letters ignored. `words` is ASCII in lower case.
bool EqualsIgnoringCase(std::string_view text, std::string_view words);

/// Whether `text` ends in `words`, likewise.
bool EndsWithIgnoringCase(std::string_view text, std::string_view words);

/// Whether `text` contains `words`, likewise. `words` is not empty.
bool ContainsIgnoringCase(std::string_view text, std::string_view words);

/// Whether `name` matches `pattern`, both with their case already folded alike: "*" stands for any
/// run of characters, "?" for one byte, and "*.*" matches names without a dot too. "*.gau" does not
/// match "x.gau_old", unlike patterns on systems that also compare a short name.
bool MatchesWildcard(std::string_view pattern, std::string_view name);

}  // namespace panelkit
