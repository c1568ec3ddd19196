// What a file's name says about its content.
#pragma once

#include <string>
#include <string_view>

namespace panelkit {

/// The kinds of files that gauges come in.
enum class FileKind {
  Other,
  GaugeFile,
  Cabinet,
  Archive,
  Program,  ///< It may unpack itself, and so hold an archive.
};

/// The kind by the name's extension, case ignored. One that is nothing else is of no kind.
FileKind KindOf(std::string_view name);

/// The name that a gauge file or cabinet had before a browser, an editor or a user changed it:
/// "Speed.gau" for "Speed (1).gau", "Copy of Speed.gau", "Speed.gau.txt". Empty for every other
/// name.
std::string OriginalName(std::string_view name);

/// Whether a file can have this plain name on every system, and nothing else is named by it.
bool NamesAFile(std::string_view name);

/// The text behind the last backslash.
std::string_view FileNameOf(std::string_view path);

}  // namespace panelkit
