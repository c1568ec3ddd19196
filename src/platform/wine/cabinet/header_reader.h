// Reads the entries of a cabinet file from its headers, never its content.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/wine/native_file.h"

namespace panelkit {

/// One entry as stored (CFFILE of [MS-CAB]).
struct StoredEntry {
  /// In the ANSI code page, or UTF-8 where kNameIsUtf8 says so; never empty. Valid until the
  /// reader's next call.
  std::string_view name;
  std::uint32_t size = 0;        ///< Bytes, unpacked.
  std::uint16_t folder = 0;      ///< Index, or one of the kContinued values.
  std::uint16_t date = 0;        ///< FAT layout.
  std::uint16_t time = 0;        ///< FAT layout.
  std::uint16_t attributes = 0;  ///< DOS attributes and kNameIsUtf8.
};

/// Bits of StoredEntry::attributes.
inline constexpr std::uint16_t kReadOnly = 0x01;
inline constexpr std::uint16_t kNameIsUtf8 = 0x80;

/// Values of StoredEntry::folder for an entry that began in the previous cabinet of a set, that
/// goes on in the next one, or both.
inline constexpr std::uint16_t kContinuedFromPrevious = 0xFFFD;
inline constexpr std::uint16_t kContinuedToNext = 0xFFFE;
inline constexpr std::uint16_t kContinuedFromPreviousToNext = 0xFFFF;

/// Reads one entry after the other. It checks only what it uses, so that a damaged cabinet gives
/// the entries before the damage.
class HeaderReader {
 public:
  /// Reads from `cabinet`, which outlives the reader.
  explicit HeaderReader(const OpenFile& cabinet);

  /// The next entry; nullopt after the last one, or if the cabinet is damaged or unreadable.
  std::optional<StoredEntry> Next();

  /// After Next gave nullopt: 0 if that was the last entry, 13 for damage or no cabinet, else why
  /// reading failed (a code of winerror.h).
  std::uint32_t Error() const { return error_; }

  /// How many folders (runs of compressed data) the cabinet has.
  std::uint16_t Folders() const { return folders_; }

 private:
  std::string_view Peek(std::size_t length);
  void MoveTo(std::uint32_t offset);
  std::nullopt_t Damaged();

  const OpenFile& cabinet_;
  std::string window_;           // The part of the file that is in memory.
  std::uint64_t window_at_ = 0;  // Offset of that part in the file.
  std::size_t position_ = 0;     // Offset of the next entry in that part.
  std::uint16_t folders_ = 0;
  std::uint16_t entries_left_ = 0;
  std::uint32_t error_ = 0;
};

/// Whether entries of a cabinet go on in the next one of its set.
struct Continuation {
  bool begins = false;      ///< An entry begins in this cabinet and goes on in the next.
  bool runs_on = false;     ///< An entry from the previous cabinet goes on in the next.
  std::uint32_t error = 0;  ///< HeaderReader::Error after the last entry.
};

/// Reads the headers of all entries.
Continuation ReadContinuation(const OpenFile& cabinet);

}  // namespace panelkit
