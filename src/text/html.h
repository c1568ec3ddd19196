// Text as a part of an HTML page.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

/// `text`, which is UTF-8, for a page: what HTML would take for its own, and every letter beyond
/// ASCII, is written as a reference, so that the page's encoding does not matter. Control
/// characters become "?".
std::string Escaped(std::string_view text);

}  // namespace panelkit
