// Files and folders of the machine, by Windows path.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panelkit {

/// Which entries a listing gives.
enum class ListedEntries {
  PlainFiles,       ///< No folders.
  FilesAndFolders,  ///< Folders too, "." and ".." first.
};

/// One entry of a listing.
struct ListedEntry {
  std::string name;        ///< Without the folder, spelt as on disk.
  bool is_folder = false;  ///< True for a link to a folder, and for "." and "..".
};

/// Whether a written file must have reached the disk before the call returns.
enum class Durability { Buffered, Flushed };

/// Why a file could not be read or written, as far as it makes a difference to the user.
enum class FileFault {
  None,
  Absent,         ///< There is no file of that name, or no folder to put it in.
  NotAFile,       ///< A folder, a pipe or a device.
  ReadOnly,       ///< The file is marked read-only, or its disk is write-protected.
  NoAccess,       ///< Closed to this user.
  InUse,          ///< Another program holds it.
  NoRoom,         ///< The disk, or the user's share of it, is full.
  TooLarge,       ///< Above kLargestFile.
  Irreplaceable,  ///< It may be written, but no new file can take its place.
  Other,
};

/// What Read gives: the bytes, or why there are none.
struct FileContent {
  std::optional<std::string> bytes;
  FileFault fault = FileFault::None;
};

/// Outcome numbers of MakeFolder that the program tells apart; any other number is another failure.
/// 75 means two things, as in the Basic that they come from: whether something is there now, Exists
/// tells.
inline constexpr int kFolderCreated = 0;
inline constexpr int kFolderExistsOrNoAccess = 75;
inline constexpr int kFolderParentMissing = 76;

/// The machine's files. Every path is a Windows path in UTF-8, built by joining texts: "C:\FS\x",
/// "\\server\share\x"; names match with case ignored, both separators and doubled ones work. A path
/// that the machine cannot hold names nothing. No call throws for what it meets on the disk.
class Files {
 public:
  virtual ~Files() = default;

  /// The folder that the program keeps its own files in, without a closing backslash; chosen once,
  /// when the machine is opened. The executable's folder if the user may write there; otherwise, or
  /// if the program is installed among others' (in a "bin" folder), UserFolder, which this call
  /// makes if it is missing.
  virtual std::string AppFolder() const = 0;

  /// The user's own folder for the program's files, without a closing backslash. Made by this call
  /// if it is missing; empty if it cannot be made.
  virtual std::string UserFolder() const = 0;

  /// Entries of one folder that match the pattern behind the last backslash ("*.gau", "*.*"),
  /// matched on the long name with case ignored, without hidden and system entries, ordered by
  /// upper-cased name. nullopt (as opposed to an empty list) if the folder is absent or cannot be
  /// read.
  virtual std::optional<std::vector<ListedEntry>> List(std::string_view pattern,
                                                       ListedEntries entries) const = 0;

  /// True if the path names a folder (attribute value 16); false for all else, missing included.
  virtual bool IsFolder(std::string_view path) const = 0;

  /// True if the path names a plain file that is neither hidden nor system.
  virtual bool IsPlainFile(std::string_view path) const = 0;

  /// True if the path names a folder or a file, whatever its attributes.
  virtual bool Exists(std::string_view path) const = 0;

  /// True if both paths reach the same file or folder on disk, through links too.
  virtual bool IsSame(std::string_view path, std::string_view other) const = 0;

  /// The path as the system's own programs write it, which no other file has: "C:\\FS" names a
  /// folder in each Wine prefix. `path` itself where no native one is known.
  virtual std::string NativePath(std::string_view path) const = 0;

  /// True if the path's last part is a link to elsewhere (a symbolic link, a junction).
  virtual bool IsLink(std::string_view path) const = 0;

  /// The whole content of a plain file of at most kLargestFile bytes.
  virtual FileContent Read(std::string_view path) const = 0;

  /// Gives a file new content, or creates it. Keeps an existing one's owner, permissions and
  /// attributes and follows links; a read-only file stays so for the administrator too. This is
  /// done in one step: a reader, or a kill at any moment, finds the old bytes or the new ones,
  /// whole, and on any fault the old file is as it was. With Durability::Flushed a power failure
  /// does no more than a kill, once the call has returned; with Durability::Buffered it can leave
  /// either content, or none.
  ///
  /// Irreplaceable for a file that the user may write but not replace: another's, of a group that
  /// the user is not in, in a folder that takes no new file, mounted by itself. It is as it was;
  /// Overwrite can change it.
  ///
  /// What a killed run left half written beside a file, the next run's first call for that folder
  /// removes.
  virtual FileFault Replace(std::string_view path, std::string_view bytes,
                            Durability durability) = 0;

  /// Writes new content over an existing file's and flushes it. Follows links; a read-only file
  /// stays as it was. A fault, a kill or a power failure can leave a file that has, at each place,
  /// the old byte, the new one or a 0, and a length from the shorter to the longer of both.
  virtual FileFault Overwrite(std::string_view path, std::string_view bytes) = 0;

  /// Adds bytes at the end of a file, which is created if it is missing, and flushes them. What is
  /// there stays as it is; on a fault or a kill as many of the bytes follow as could be written.
  virtual void Append(std::string_view path, std::string_view bytes) = 0;

  /// Replace, or Overwrite for an Irreplaceable file: where the content can be made again.
  FileFault ReplaceOrOverwrite(std::string_view path, std::string_view bytes,
                               Durability durability) {
    const FileFault fault = Replace(path, bytes, durability);
    return fault == FileFault::Irreplaceable ? Overwrite(path, bytes) : fault;
  }

  /// Creates one folder below an existing one. Gives kFolderCreated; kFolderExistsOrNoAccess if
  /// anything of that name is there, a file too, or if the user may make no folder there;
  /// kFolderParentMissing; or another number.
  virtual int MakeFolder(std::string_view path) = 0;

  /// Copies a file's content, time stamp and permissions and flushes the copy to the disk; an
  /// existing target is replaced, read-only or not. False, with no target left, on failure.
  virtual bool Copy(std::string_view source, std::string_view target) = 0;

  /// Gives the file `from` the name `to` in the same folder, spelt exactly so, in one step. What
  /// stood there under that name in any case, read-only or not, gives way. False where it cannot.
  virtual bool Rename(std::string_view from, std::string_view to) = 0;

  /// Deletes one plain file, read-only or not. False if it cannot (in use, closed to us, a folder,
  /// absent); the file is as it was then, its attributes too.
  virtual bool Delete(std::string_view path) = 0;

  /// Waits until no other program holds this lock of the folder, and holds it until the result
  /// goes, or the process ends. It keeps out nobody but who asks for it too. Null where the folder
  /// is absent or its disk has no locks.
  [[nodiscard]] virtual std::shared_ptr<void> Lock(std::string_view folder) = 0;
};

/// Read's limit in bytes: far above any real panel or configuration, below what exhausts a 32-bit
/// process.
inline constexpr std::size_t kLargestFile = std::size_t{256} * 1024 * 1024;

}  // namespace panelkit
