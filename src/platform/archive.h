// Archives: the entries of zip, 7z, rar, tar and cabinet files, read one after the other.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace panelkit {

/// One entry of an archive, as the archive describes it. None of it can be trusted.
struct ArchiveEntry {
  std::string name;  ///< UTF-8, folders separated by backslashes, without "." and empty parts but
                     ///< a first one; "?" stands for control characters. May lead anywhere.
  std::vector<std::string> other_names;  ///< What the name may be in other code pages.
  std::uint64_t size = 0;                ///< Bytes when unpacked; 0 if the archive does not say.
  std::int64_t modified = 0;   ///< Seconds since 1970, UTC; 0 if the archive does not say.
  bool is_plain_file = false;  ///< False for folders, links, devices and the like.
  bool is_encrypted = false;
};

/// Why an archive, or an entry's content, could not be read to its end.
enum class ArchiveFault {
  None,
  Unreadable,   ///< The file cannot be opened or read.
  NoArchive,    ///< It is no archive of a known kind, nor a program that brings one along.
  Damaged,      ///< Its bytes contradict each other.
  CutOff,       ///< It ends too early, as a broken download does.
  OtherMethod,  ///< It is packed by a method that cannot be read here.
  Encrypted,    ///< The content is encrypted, or the names of the entries are.
  NoRoom,       ///< There is not memory enough.
  TooLarge,     ///< It would unpack to more than the limits below allow.
  Installer,    ///< It is a program with data of an unknown kind behind its own part.
};

/// An entry's content: at most kLargestFile bytes, or why there is none.
struct ArchiveContent {
  std::optional<std::string> bytes;
  ArchiveFault fault = ArchiveFault::None;
};

/// Unpacks the entry that is being visited; valid during the visit, to be called once at most.
using ReadArchiveEntry = std::function<ArchiveContent()>;

/// Called for each entry, in the archive's order. False ends the reading.
using OnArchiveEntry = std::function<bool(const ArchiveEntry& entry, const ReadArchiveEntry& read)>;

/// Bytes as a file for services that take a path; gone when this object is.
class UnpackedFile {
 public:
  virtual ~UnpackedFile() = default;
  /// Its Windows path, whose name says nothing about the content.
  virtual const std::string& Path() const = 0;
};

/// The machine's reader of archives. Writes nothing but UnpackedFile and follows no entry's name.
class ArchiveReader {
 public:
  virtual ~ArchiveReader() = default;

  /// Visits the entries of the archive file `path` (a Windows path). What comes before the fault
  /// has been visited. An archive that the visitor ended counts as read.
  virtual ArchiveFault Read(std::string_view path, const OnArchiveEntry& visit) const = 0;

  /// The same for an archive in memory. Long ones are read from an UnpackedFile, so that they are
  /// not in memory beside their entries.
  virtual ArchiveFault ReadBytes(std::string bytes, const OnArchiveEntry& visit) const = 0;

  /// A temporary file of these bytes, closed to other users, with `modified` (seconds since 1970,
  /// UTC) as its time stamp; null if it cannot be made.
  virtual std::unique_ptr<UnpackedFile> Unpack(std::string_view bytes,
                                               std::int64_t modified) const = 0;

  /// From now on calls `task`, which must not throw, often while anything is read, also in the
  /// midst of a long entry. Without one nothing is called.
  void WhileReading(std::function<void()> task) { while_reading_ = std::move(task); }

 protected:
  void TellThatItReads() const {
    if (while_reading_) while_reading_();
  }

 private:
  std::function<void()> while_reading_;
};

/// The most entries that are visited in one archive.
inline constexpr std::size_t kMostArchiveEntries = 200'000;

/// An archive may unpack to kHarmlessSize bytes, and beyond that to kLargestExpansion times its own
/// size: far above what real files compress to, far below what archive bombs expand to.
inline constexpr std::uint64_t kHarmlessSize = std::uint64_t{64} * 1024 * 1024;
inline constexpr std::uint64_t kLargestExpansion = 200;

}  // namespace panelkit
