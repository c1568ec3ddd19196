#include "platform/wine/cabinet/header_reader.h"

#include <unistd.h>

#include <cerrno>

#include "platform/wine/cabinet/win32_error.h"

namespace panelkit {

namespace {

constexpr std::size_t kWindowSize = 8192;
constexpr std::size_t kHeaderSize = 36;     // CFHEADER without its optional fields.
constexpr std::size_t kEntrySize = 16;      // CFFILE without its name.
constexpr std::size_t kLongestName = 256;   // With the closing 0.
constexpr std::uint16_t kVersion = 0x0103;  // 1.3, the only one.

std::uint32_t Number(std::string_view bytes, std::size_t offset, std::size_t size) {
  std::uint32_t value = 0;
  for (std::size_t i = size; i > 0; --i) {
    value = value << 8 | static_cast<unsigned char>(bytes[offset + i - 1]);
  }
  return value;
}

std::uint16_t Short(std::string_view bytes, std::size_t offset) {
  return static_cast<std::uint16_t>(Number(bytes, offset, 2));
}

}  // namespace

HeaderReader::HeaderReader(const OpenFile& cabinet) : cabinet_(cabinet) {
  const std::string_view header = Peek(kHeaderSize);
  if (header.size() < kHeaderSize || !header.starts_with("MSCF") || Short(header, 24) != kVersion) {
    Damaged();
    return;
  }
  folders_ = Short(header, 26);
  entries_left_ = Short(header, 28);
  // The entries' offset skips reserved areas, neighbours' names and the table of folders.
  MoveTo(Number(header, 16, 4));
}

std::optional<StoredEntry> HeaderReader::Next() {
  if (entries_left_ == 0 || error_ != 0) return std::nullopt;
  const std::string_view bytes = Peek(kEntrySize + kLongestName);
  if (bytes.size() <= kEntrySize) return Damaged();
  const std::size_t name_length = bytes.substr(kEntrySize).find('\0');
  if (name_length == 0 || name_length == std::string_view::npos) return Damaged();

  StoredEntry entry{.name = bytes.substr(kEntrySize, name_length),
                    .size = Number(bytes, 0, 4),
                    .folder = Short(bytes, 8),
                    .date = Short(bytes, 10),
                    .time = Short(bytes, 12),
                    .attributes = Short(bytes, 14)};
  if (entry.folder < kContinuedFromPrevious && entry.folder >= folders_) return Damaged();
  // Such an entry lies in both the first and the last folder, which must be the same one:
  // libmspack's append would use freed memory otherwise.
  if (entry.folder == kContinuedFromPreviousToNext && folders_ != 1) return Damaged();
  position_ += kEntrySize + name_length + 1;
  --entries_left_;
  return entry;
}

// The next `length` bytes, fewer at the end of the file; valid until the next call.
std::string_view HeaderReader::Peek(std::size_t length) {
  if (window_.size() - position_ < length) {
    window_.erase(0, position_);
    window_at_ += position_;
    position_ = 0;
    std::size_t filled = window_.size();
    window_.resize(kWindowSize);
    while (filled < kWindowSize) {
      const ssize_t got = pread(cabinet_.Descriptor(), window_.data() + filled,
                                kWindowSize - filled, static_cast<off_t>(window_at_ + filled));
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) error_ = Win32ErrorOf(errno, ERROR_READ_FAULT);
      if (got <= 0) break;
      filled += static_cast<std::size_t>(got);
    }
    window_.resize(filled);
  }
  return std::string_view(window_).substr(position_, length);
}

void HeaderReader::MoveTo(std::uint32_t offset) {
  if (offset >= window_at_ && offset - window_at_ <= window_.size()) {
    position_ = static_cast<std::size_t>(offset - window_at_);
    return;
  }
  window_.clear();
  position_ = 0;
  window_at_ = offset;
}

std::nullopt_t HeaderReader::Damaged() {
  if (error_ == 0) error_ = ERROR_INVALID_DATA;
  return std::nullopt;
}

Continuation ReadContinuation(const OpenFile& cabinet) {
  Continuation found;
  HeaderReader entries(cabinet);
  while (const auto entry = entries.Next()) {
    found.begins |= entry->folder == kContinuedToNext;
    found.runs_on |= entry->folder == kContinuedFromPreviousToNext;
  }
  found.error = entries.Error();
  return found;
}

}  // namespace panelkit
