// Upper and lower case, letter by letter, whatever the locale.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

/// UTF-8 in lower case by Unicode's one-to-one mapping. A letter beyond ASCII never becomes an
/// ASCII one (the Kelvin sign stays apart from "k"), so a search for ASCII words needs no mapping.
/// Bytes that are not UTF-8 stay as they are.
std::string Lowered(std::string_view text);

/// The same in upper case.
std::string Uppered(std::string_view text);

}  // namespace panelkit
