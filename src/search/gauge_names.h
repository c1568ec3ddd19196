// What a file's name says about its content.
#pragma once

#include <string_view>

namespace panelkit {

/// The kinds of files that gauges come in.
enum class FileKind { Other, GaugeFile, Cabinet, Archive };

/// The kind by the name's extension, case ignored. One that is nothing else is of no kind.
FileKind KindOf(std::string_view name);

/// The text behind the last backslash.
std::string_view FileNameOf(std::string_view path);

}  // namespace panelkit
