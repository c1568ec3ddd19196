// Programs and libraries: what kind of file one is, and where its own part ends.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace panelkit {

/// The flags in the header of a program or library for Windows, of which `bytes` is the file or its
/// beginning; nullopt if it is none.
std::optional<std::uint64_t> ProgramFlags(std::string_view bytes);

/// Whether a file that begins so is a program or library, for DOS, Windows or Linux.
bool IsProgram(std::string_view beginning);

/// Places in a file, in bytes from its beginning.
struct PartOfFile {
  std::uint64_t begin = 0;
  std::uint64_t end = 0;
};

/// What a program for Windows or Linux of `size` bytes has behind its own part and before its
/// signature, as installers have what they unpack. `beginning` is its first 4 KiB. nullopt if there
/// is nothing, or it is no such program.
std::optional<PartOfFile> PartBehindProgram(std::string_view beginning, std::uint64_t size);

}  // namespace panelkit
