// Panel entries: the name texts of gauge lines, "gauge" or "file!gauge".
#pragma once

#include <string_view>

namespace panelkit {

/// The text before the entry's first "!": the name of a gauge file or cabinet without its
/// extension. An entry without "!" is its own file part.
constexpr std::string_view FilePart(std::string_view entry) {
  return entry.substr(0, entry.find('!'));
}

/// Whether the entry, or a gauge key of a cabinet, has the form "file!gauge".
constexpr bool NamesFile(std::string_view entry) {
  return entry.find('!') != std::string_view::npos;
}

}  // namespace panelkit
