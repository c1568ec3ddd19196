// Writes cabinets for tests, with any field of the headers as the test wants it ([MS-CAB]).
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace panelkit::test {

/// iFolder of entries continued from or in a neighbour; their content is in the first or last
/// folder.
inline constexpr std::uint16_t kFromPrevious = 0xFFFD;
inline constexpr std::uint16_t kToNext = 0xFFFE;
inline constexpr std::uint16_t kFromPreviousToNext = 0xFFFF;

/// One entry and its content.
struct CabinetEntry {
  std::string name = {};  ///< Bytes as stored.
  std::string content = {};
  std::uint16_t attributes = 0x20;
  std::uint16_t date = 0x2C21;  ///< 1 January 2002.
  std::uint16_t time = 0x6000;  ///< 12:00:00.
  std::uint16_t folder = 0;     ///< iFolder as stored: an index or one of the values above.
};

struct CabinetOptions {
  std::uint16_t folders = 1;
  std::uint8_t reserve = 0;   ///< Bytes left free in the header, each folder and each block.
  std::string previous = {};  ///< Neighbours in a set; empty for none.
  std::string next = {};
  std::uint16_t set_index = 0;
  std::size_t bytes_in_previous = 0;  ///< How much of the first folder's content lies there.
  std::size_t bytes_in_next = 0;      ///< How much of the last folder's content lies there.
};

/// The bytes of a valid cabinet, without compression or checksums.
std::string MakeCabinet(const std::vector<CabinetEntry>& entries,
                        const CabinetOptions& options = {});

}  // namespace panelkit::test
