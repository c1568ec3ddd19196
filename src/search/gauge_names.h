// What a file's name says about its content.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

/// The kinds of files that gauges come in.
enum class FileKind { Other, GaugeFile, Cabinet, Archive };

/// The kind by the name's ending, case ignored.
FileKind KindOf(std::string_view name);

/// The text behind the last backslash.
std::string_view FileNameOf(std::string_view path);

/// The name of a gauge file or cabinet without its extension of 4 characters.
std::string LessExtension(std::string_view name);

}  // namespace panelkit
