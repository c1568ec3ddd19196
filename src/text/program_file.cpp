#include "text/program_file.h"

#include <algorithm>

namespace panelkit {
namespace {

constexpr std::string_view kElf =
    "\x7F"
    "ELF";

// A number of `size` bytes, the lowest first; nullopt behind the end.
std::optional<std::uint64_t> NumberAt(std::string_view bytes, std::uint64_t place,
                                      std::size_t size) {
  if (place > bytes.size() || bytes.size() - place < size) return std::nullopt;
  std::uint64_t number = 0;
  for (std::size_t i = size; i-- > 0;) {
    number = number << 8U | static_cast<unsigned char>(bytes[place + i]);
  }
  return number;
}

// Where the header of a program for Windows begins.
std::optional<std::uint64_t> WindowsHeader(std::string_view bytes) {
  const auto header = bytes.starts_with("MZ") ? NumberAt(bytes, 0x3C, 4) : std::nullopt;
  const bool is_there = header && *header < bytes.size() && bytes.substr(*header).starts_with("PE");
  return is_there ? header : std::nullopt;
}

// What lies behind the sections of a program for Windows, whose header begins at `header`.
PartOfFile BehindSections(std::string_view beginning, std::uint64_t header, std::uint64_t size) {
  // What cannot be read counts as 0, and leaves nothing behind the program.
  const auto number = [&](std::uint64_t place, std::size_t bytes) {
    return NumberAt(beginning, header + place, bytes).value_or(0);
  };
  // Symbols lie behind the sections; no packer leaves them there.
  if (number(12, 4) != 0) return {size, size};
  const std::uint64_t sections = 24 + number(20, 2);
  std::uint64_t end = 0;
  for (std::uint64_t i = 0; i < number(6, 2); ++i) {
    const std::uint64_t section = sections + i * 40;
    end = std::max(end, number(section + 20, 4) + number(section + 16, 4));
  }
  constexpr std::uint64_t k64Bit = 0x20B;
  const std::uint64_t signature = number(number(24, 2) == k64Bit ? 168 : 152, 4);
  return {end, signature >= end ? std::min(signature, size) : size};
}

// What lies behind the table of sections of a program for Linux, which comes last.
PartOfFile BehindElf(std::string_view beginning, std::uint64_t size) {
  const auto number = [&](std::uint64_t place, std::size_t bytes) {
    return NumberAt(beginning, place, bytes).value_or(0);
  };
  const bool is_64_bit = number(4, 1) == 2;
  const std::uint64_t table = is_64_bit ? number(0x28, 8) : number(0x20, 4);
  const std::uint64_t counts = is_64_bit ? 0x3A : 0x2E;
  return {table + number(counts, 2) * number(counts + 2, 2), size};
}

}  // namespace

std::optional<std::uint64_t> ProgramFlags(std::string_view bytes) {
  const auto header = WindowsHeader(bytes);
  return header ? NumberAt(bytes, *header + 22, 2) : std::nullopt;
}

bool IsProgram(std::string_view beginning) {
  return beginning.starts_with("MZ") || beginning.starts_with(kElf);
}

std::optional<PartOfFile> PartBehindProgram(std::string_view beginning, std::uint64_t size) {
  const auto header = WindowsHeader(beginning);
  if (!header && !beginning.starts_with(kElf)) return std::nullopt;
  const PartOfFile part =
      header ? BehindSections(beginning, *header, size) : BehindElf(beginning, size);
  if (part.begin == 0 || part.begin >= part.end) return std::nullopt;
  return part;
}

}  // namespace panelkit
