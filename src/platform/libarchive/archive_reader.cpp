#include "platform/libarchive/archive_reader.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <functional>
#include <initializer_list>
#include <optional>
#include <sstream>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/libarchive/oem_names.h"
#include "text/program_file.h"
#include "text/utf8.h"

namespace panelkit {
namespace {

struct FreeReader {
  void operator()(archive* reader) const { archive_read_free(reader); }
};
using Reader = std::unique_ptr<archive, FreeReader>;

Reader NewReader() {
  Reader reader(archive_read_new());
  for (const auto support : {archive_read_support_format_zip, archive_read_support_format_7zip,
                             archive_read_support_format_rar, archive_read_support_format_rar5,
                             archive_read_support_format_tar, archive_read_support_format_cab,
                             archive_read_support_format_lha, archive_read_support_format_iso9660,
                             archive_read_support_filter_gzip, archive_read_support_filter_bzip2,
                             archive_read_support_filter_xz, archive_read_support_filter_lzma,
                             archive_read_support_filter_compress}) {
    support(reader.get());
  }
  // Without it, the library would start another program for such archives.
  if (archive_libzstd_version() != nullptr) archive_read_support_filter_zstd(reader.get());
  // Each byte becomes one character, from which PossibleNames has the byte again.
  archive_read_set_format_option(reader.get(), "zip", "hdrcharset", "CP437");
  archive_read_set_format_option(reader.get(), "lha", "hdrcharset", "CP437");
  return reader;
}

// The library tells most faults by its words alone.
ArchiveFault FaultOf(archive* reader) {
  if (archive_errno(reader) == ENOMEM) return ArchiveFault::NoRoom;
  const char* const words = archive_error_string(reader);
  // Its readers of formats say nothing where the bytes end too early.
  if (words == nullptr) return ArchiveFault::CutOff;
  const auto says = [words](std::initializer_list<std::string_view> parts) {
    return std::any_of(parts.begin(), parts.end(), [words](std::string_view part) {
      return std::string_view(words).find(part) != std::string_view::npos;
    });
  };
  if (says({"Unrecognized archive format"})) return ArchiveFault::NoArchive;
  if (says({"ncrypt", "assphrase"})) return ArchiveFault::Encrypted;
  if (says({"nsupported", "ot supported", "navailable", "ot available", "codec"})) {
    return ArchiveFault::OtherMethod;
  }
  // zlib's -5 and liblzma's "no progress" ask for more bytes.
  if (says({"runcated", "nd of file", "(-5)", "No progress"})) return ArchiveFault::CutOff;
  return ArchiveFault::Damaged;
}

/// A part of an archive's bytes as libarchive's callbacks read it.
class Source {
 public:
  Source(std::istream& stream, std::function<void()> at_block)
      : stream_(stream), at_block_(std::move(at_block)) {
    stream_.seekg(0, std::ios::end);
    end_ = stream_.tellg();
    stream_.seekg(0);
  }

  /// False where the bytes cannot be read.
  bool IsOpen() const { return end_ >= 0; }
  la_int64_t Size() const { return end_ - begin_; }
  la_int64_t Position() const { return position_; }

  /// Gives the new position, at most the end: of a file that is cut off, more may be asked for.
  la_int64_t Seek(la_int64_t position) {
    position_ = std::clamp<la_int64_t>(position, 0, Size());
    stream_.clear();
    stream_.seekg(begin_ + position_);
    return position_;
  }

  /// The next bytes, none at the end; nullopt on failure.
  std::optional<std::string_view> Next() {
    at_block_();
    stream_.read(buffer_.data(), std::min(Size() - position_, kBlock));
    if (stream_.bad()) return std::nullopt;
    position_ += stream_.gcount();
    return std::string_view(buffer_.data(), static_cast<std::size_t>(stream_.gcount()));
  }

  /// Becomes the part between two of its places, to be read from its beginning.
  void Narrow(la_int64_t begin, la_int64_t end) {
    end_ = begin_ + end;
    begin_ += begin;
    Seek(0);
  }

 private:
  static constexpr la_int64_t kBlock = 65536;

  std::istream& stream_;
  std::function<void()> at_block_;
  la_int64_t begin_ = 0;  // In the stream.
  la_int64_t end_ = 0;
  la_int64_t position_ = 0;  // From `begin_` on.
  std::array<char, kBlock> buffer_{};
};

la_ssize_t ReadSource(archive*, void* address, const void** bytes) {
  const auto next = static_cast<Source*>(address)->Next();
  if (!next) return ARCHIVE_FATAL;
  *bytes = next->data();
  return static_cast<la_ssize_t>(next->size());
}

la_int64_t SeekInSource(archive*, void* address, la_int64_t offset, int whence) {
  auto& source = *static_cast<Source*>(address);
  return source.Seek(offset + (whence == SEEK_SET   ? 0
                               : whence == SEEK_CUR ? source.Position()
                                                    : source.Size()));
}

/// Walks one opened archive within the limits of archive.h.
class EntryWalk {
 public:
  /// `size` is the archive's own.
  EntryWalk(archive* reader, std::uint64_t size, const Text& text)
      : reader_(reader), limit_(std::max(kHarmlessSize, size * kLargestExpansion)), text_(text) {}

  ArchiveFault Run(const OnArchiveEntry& visit);

 private:
  ArchiveEntry Describe(archive_entry* entry) const;
  int Format() const { return archive_format(reader_) & ARCHIVE_FORMAT_BASE_MASK; }
  std::vector<std::string> NamesOf(archive_entry* entry) const;
  bool PassingCosts(const ArchiveEntry& entry);
  ArchiveContent Content(const ArchiveEntry& entry);

  archive* reader_;
  std::uint64_t limit_;
  const Text& text_;
  std::uint64_t unpacked_ = 0;
};

ArchiveFault EntryWalk::Run(const OnArchiveEntry& visit) {
  for (std::size_t count = 0;; ++count) {
    archive_entry* raw = nullptr;
    const int status = archive_read_next_header(reader_, &raw);
    if (status == ARCHIVE_EOF) return ArchiveFault::None;
    if (status != ARCHIVE_OK && status != ARCHIVE_WARN) {
      const bool is_encrypted = archive_read_has_encrypted_entries(reader_) > 0;
      return is_encrypted ? ArchiveFault::Encrypted : FaultOf(reader_);
    }
    if (count == kMostArchiveEntries) return ArchiveFault::TooLarge;
    const ArchiveEntry entry = Describe(raw);
    bool was_read = false;
    const auto read = [&] {
      was_read = true;
      return Content(entry);
    };
    if (!visit(entry, read)) return ArchiveFault::None;
    if (!was_read && PassingCosts(entry)) unpacked_ += entry.size;
    if (unpacked_ > limit_) return ArchiveFault::TooLarge;
  }
}

/// Whether the next header lies behind the entry's unpacked content: everywhere but in zip files
/// and disk images, which have a directory.
bool EntryWalk::PassingCosts(const ArchiveEntry& entry) {
  const int format = Format();
  return entry.is_plain_file && format != ARCHIVE_FORMAT_ZIP && format != ARCHIVE_FORMAT_ISO9660;
}

ArchiveEntry EntryWalk::Describe(archive_entry* entry) const {
  ArchiveEntry described;
  described.other_names = NamesOf(entry);
  for (std::string& name : described.other_names) name = Tidied(name);
  described.name = std::move(described.other_names.front());
  described.other_names.erase(described.other_names.begin());
  described.size = static_cast<std::uint64_t>(std::max<la_int64_t>(0, archive_entry_size(entry)));
  described.modified = archive_entry_mtime(entry);
  described.is_plain_file = archive_entry_filetype(entry) == AE_IFREG &&
                            archive_entry_hardlink(entry) == nullptr &&
                            archive_entry_symlink(entry) == nullptr;
  described.is_encrypted = archive_entry_is_encrypted(entry) != 0;
  return described;
}

std::vector<std::string> EntryWalk::NamesOf(archive_entry* entry) const {
  const bool has_code_page = Format() != ARCHIVE_FORMAT_ZIP && Format() != ARCHIVE_FORMAT_LHA;
  // On Windows the library's names in UTF-8 lack what the "C" locale lacks.
  if (const wchar_t* wide = archive_entry_pathname_w(entry)) {
    const std::string name = FromWide(wide);
    return has_code_page ? std::vector{NameOfBytes(name)} : PossibleNames(name, text_);
  }
  const char* stored = archive_entry_pathname(entry);
  return {stored != nullptr ? text_.FromAnsi(stored) : std::string()};
}

ArchiveContent EntryWalk::Content(const ArchiveEntry& entry) {
  if (entry.is_encrypted) return {std::nullopt, ArchiveFault::Encrypted};
  if (entry.size > kLargestFile) return {std::nullopt, ArchiveFault::TooLarge};
  std::string content;
  // Growing by doubling, it would be there twice.
  content.reserve(static_cast<std::size_t>(std::min(entry.size, limit_ - unpacked_)));
  std::vector<char> buffer(65536);
  for (;;) {
    const la_ssize_t count = archive_read_data(reader_, buffer.data(), buffer.size());
    if (count == 0) return {std::move(content)};
    if (count < 0) return {std::nullopt, FaultOf(reader_)};
    unpacked_ += static_cast<std::uint64_t>(count);
    content.append(buffer.data(), static_cast<std::size_t>(count));
    if (unpacked_ > limit_ || content.size() > kLargestFile) {
      return {std::nullopt, ArchiveFault::TooLarge};
    }
  }
}

ArchiveFault ReadEntries(Source& source, const Text& text, const OnArchiveEntry& visit) {
  const Reader reader = NewReader();
  archive_read_set_read_callback(reader.get(), ReadSource);
  archive_read_set_seek_callback(reader.get(), SeekInSource);
  archive_read_set_callback_data(reader.get(), &source);
  if (archive_read_open1(reader.get()) != ARCHIVE_OK) return FaultOf(reader.get());
  return EntryWalk(reader.get(), static_cast<std::uint64_t>(source.Size()), text).Run(visit);
}

/// Narrows a program to the archive that it has behind its own part. Without one it says what it
/// is.
ArchiveFault FindBehindProgram(Source& source, std::string_view beginning) {
  using namespace std::string_view_literals;
  // 7z puts settings before its archive.
  constexpr std::array kBeginnings{"PK\3\4"sv, "7z\xBC\xAF\x27\x1C"sv, "Rar!\x1A\7"sv,
                                   "MSCF\0\0\0\0"sv};
  // What is shorter may be something that a linker left.
  constexpr std::uint64_t kShortest = 4096;
  const auto part = PartBehindProgram(beginning, static_cast<std::uint64_t>(source.Size()));
  if (!part) return ArchiveFault::NoArchive;
  source.Narrow(static_cast<la_int64_t>(part->begin), static_cast<la_int64_t>(part->end));
  const std::string_view bytes = source.Next().value_or(""sv);
  std::size_t place = bytes.size();
  for (const std::string_view archive : kBeginnings) place = std::min(place, bytes.find(archive));
  if (place < bytes.size()) {
    source.Narrow(static_cast<la_int64_t>(place), source.Size());
    return ArchiveFault::None;
  }
  return part->end - part->begin < kShortest ? ArchiveFault::NoArchive : ArchiveFault::Installer;
}

}  // namespace

ArchiveFault LibarchiveReader::Read(std::string_view path, const OnArchiveEntry& visit) const {
  std::ifstream file(native_path_(path), std::ios::binary);
  return Walk(file, visit);
}

ArchiveFault LibarchiveReader::ReadBytes(std::string bytes, const OnArchiveEntry& visit) const {
  constexpr std::size_t kLong = std::size_t{16} * 1024 * 1024;
  if (bytes.size() > kLong) {
    const auto file = Unpack(bytes, 0);
    if (!file) return ArchiveFault::NoRoom;
    std::string().swap(bytes);
    return Read(file->Path(), visit);
  }
  std::istringstream memory(std::move(bytes));
  return Walk(memory, visit);
}

ArchiveFault LibarchiveReader::Walk(std::istream& stream, const OnArchiveEntry& visit) const {
  constexpr std::size_t kHeaders = 4096;
  const auto utf8 = ConvertNamesToUtf8();
  Source source(stream, [this] { TellThatItReads(); });
  if (!source.IsOpen()) return ArchiveFault::Unreadable;
  const std::string beginning(source.Next().value_or("").substr(0, kHeaders));
  source.Seek(0);
  bool has_entries = false;
  const ArchiveFault fault = ReadEntries(source, text_, [&](const auto& entry, const auto& read) {
    has_entries = true;
    return visit(entry, read);
  });
  if (fault == ArchiveFault::None || has_entries || !IsProgram(beginning)) return fault;
  // libarchive finds an archive only in some programs, so we look behind the program ourselves.
  const ArchiveFault behind = FindBehindProgram(source, beginning);
  return behind == ArchiveFault::None ? ReadEntries(source, text_, visit) : behind;
}

}  // namespace panelkit
