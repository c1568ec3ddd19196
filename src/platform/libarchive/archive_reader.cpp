#include "platform/libarchive/archive_reader.h"

#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>
#include <vector>

#include "platform/files.h"
#include "platform/libarchive/oem_names.h"
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
  const std::string_view error = words != nullptr ? words : "";
  const auto says = [error](std::string_view part) {
    return error.find(part) != std::string_view::npos;
  };
  if (says("Unrecognized archive format")) return ArchiveFault::NoArchive;
  if (says("ncrypt") || says("assphrase")) return ArchiveFault::Encrypted;
  if (says("nsupported") || says("ot supported") || says("unavailable") || says("not available") ||
      says("codec")) {
    return ArchiveFault::OtherMethod;
  }
  // zlib's -5 asks for more bytes.
  if (says("runcated") || says("nd of file") || says("(-5)")) return ArchiveFault::CutOff;
  return ArchiveFault::Damaged;
}

/// An archive's bytes as libarchive's callbacks read them.
struct ArchiveBytes {
  ArchiveBytes(std::istream& bytes, std::function<void()> at_each_block)
      : stream(bytes), at_block(std::move(at_each_block)) {
    stream.seekg(0, std::ios::end);
    size = stream.tellg();
    stream.seekg(0);
  }

  /// Gives the new position, or libarchive's code of failure.
  la_int64_t Seek(la_int64_t offset, std::ios::seekdir from) {
    stream.clear();
    stream.seekg(offset, from);
    return stream ? static_cast<la_int64_t>(stream.tellg()) : ARCHIVE_FATAL;
  }

  std::istream& stream;
  std::function<void()> at_block;
  la_int64_t size = 0;  // Negative if they cannot be read.
  std::array<char, 65536> buffer{};
};

la_ssize_t ReadBlock(archive*, void* bytes_address, const void** block) {
  auto& bytes = *static_cast<ArchiveBytes*>(bytes_address);
  bytes.at_block();
  bytes.stream.read(bytes.buffer.data(), static_cast<std::streamsize>(bytes.buffer.size()));
  *block = bytes.buffer.data();
  return bytes.stream.bad() ? ARCHIVE_FATAL : static_cast<la_ssize_t>(bytes.stream.gcount());
}

la_int64_t Skip(archive*, void* bytes_address, la_int64_t request) {
  auto& bytes = *static_cast<ArchiveBytes*>(bytes_address);
  const la_int64_t before = bytes.Seek(0, std::ios::cur);
  // Past the end nothing could be read, which only reading may tell.
  const la_int64_t skipped = std::min(request, bytes.size - before);
  return skipped > 0 && bytes.Seek(skipped, std::ios::cur) >= 0 ? skipped : 0;
}

la_int64_t SeekTo(archive*, void* bytes_address, la_int64_t offset, int whence) {
  auto& bytes = *static_cast<ArchiveBytes*>(bytes_address);
  return bytes.Seek(offset, whence == SEEK_SET   ? std::ios::beg
                            : whence == SEEK_CUR ? std::ios::cur
                                                 : std::ios::end);
}

bool Open(archive* reader, ArchiveBytes& bytes) {
  archive_read_set_read_callback(reader, ReadBlock);
  archive_read_set_skip_callback(reader, Skip);
  archive_read_set_seek_callback(reader, SeekTo);
  archive_read_set_callback_data(reader, &bytes);
  return archive_read_open1(reader) == ARCHIVE_OK;
}

/// A name as ArchiveEntry has it.
std::string Tidied(std::string name) {
  for (char& c : name) {
    if (c == '/') c = '\\';
    if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F) c = '?';
  }
  std::string tidied;
  for (std::size_t begin = 0; begin <= name.size();) {
    const std::size_t end = std::min(name.find('\\', begin), name.size());
    const std::string part = name.substr(begin, end - begin);
    const bool is_nothing = part == "." || (part.empty() && begin > 0);
    if (!is_nothing) tidied += part;
    if (!is_nothing && end < name.size()) tidied += '\\';
    begin = end + 1;
  }
  return tidied;
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
  const auto utf8 = ConvertNamesToUtf8();
  ArchiveBytes bytes(stream, [this] { TellThatItReads(); });
  if (bytes.size < 0) return ArchiveFault::Unreadable;
  const Reader reader = NewReader();
  if (!Open(reader.get(), bytes)) return FaultOf(reader.get());
  return EntryWalk(reader.get(), static_cast<std::uint64_t>(bytes.size), text_).Run(visit);
}

}  // namespace panelkit
