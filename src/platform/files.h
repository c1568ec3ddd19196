// Seam 2, files: folders and files by Windows path.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace panelkit {

/// What a listing gives.
enum class ListedEntries {
  PlainFiles,       ///< No folders.
  FilesAndFolders,  ///< Folders too, "." and ".." first.
};

/// Whether a written file must have reached the disk before the call returns.
enum class Durability { Buffered, Flushed };

/// Outcome numbers of MakeFolder that the program tells apart; any other number is another failure.
inline constexpr int kFolderCreated = 0;
inline constexpr int kFolderExistsOrNoAccess = 75;
inline constexpr int kFolderParentMissing = 76;

/// The machine's files. Every path is a Windows path in UTF-8, built by joining texts: "C:\FS\x",
/// "\\server\share\x"; names match with case ignored, both separators and doubled ones work. A path
/// that the machine cannot hold names nothing. No call throws for what it meets on the disk.
class Files {
 public:
  virtual ~Files() = default;

  /// The folder of the program's own executable, without a closing backslash.
  virtual std::string AppFolder() const = 0;

  /// Names in one folder that match the pattern behind the last backslash ("*.gau", "*.*"), matched
  /// on the long name with case ignored, without hidden and system entries, ordered by upper-cased
  /// name. Nothing (as opposed to an empty list) where the folder is absent or cannot be read.
  virtual std::optional<std::vector<std::string>> List(std::string_view pattern,
                                                       ListedEntries entries) const = 0;

  /// True if the path names a folder (attribute value 16); false for all else, missing included.
  virtual bool IsFolder(std::string_view path) const = 0;

  /// True if the path names a plain file that is neither hidden nor system.
  virtual bool IsPlainFile(std::string_view path) const = 0;

  /// True if the path names a folder or a file, whatever its attributes.
  virtual bool Exists(std::string_view path) const = 0;

  /// True if both paths reach the same file or folder on disk, through links too.
  virtual bool IsSame(std::string_view path, std::string_view other) const = 0;

  /// True if the path's last part is a link to elsewhere (a symbolic link, a junction).
  virtual bool IsLink(std::string_view path) const = 0;

  /// The whole content of a plain file; nothing where it is absent, no plain file (a folder, a pipe
  /// or a device), closed to us, or larger than kLargestFile.
  virtual std::optional<std::string> Read(std::string_view path) const = 0;

  /// Gives a file new content in one step: a reader, or a kill at any moment, finds the old bytes
  /// or the new ones, whole. Creates the file if absent; keeps an existing one's owner, permissions
  /// and attributes and follows links. False, with the old file as it was, where the file is
  /// read-only (for the administrator too), the folder is closed to us, or the disk is full.
  virtual bool Replace(std::string_view path, std::string_view bytes, Durability durability) = 0;

  /// Creates one folder. Gives kFolderCreated, kFolderExistsOrNoAccess, kFolderParentMissing, or
  /// another number.
  virtual int MakeFolder(std::string_view path) = 0;

  /// Copies a file's content, time stamp and permissions and flushes the copy to the disk; an
  /// existing target is replaced, read-only or not. False, with no target left, on failure.
  virtual bool Copy(std::string_view source, std::string_view target) = 0;

  /// Gives the file `from` the name `to` in the same folder, spelt exactly so, in one step. What
  /// stood there under that name in any case, read-only or not, gives way. False where it cannot.
  virtual bool Rename(std::string_view from, std::string_view to) = 0;

  /// Sets the file's attributes to normal, which clears read-only. False where it cannot.
  virtual bool ClearAttributes(std::string_view path) = 0;

  /// Deletes one plain file. False where it cannot (read-only, in use, closed to us, a folder,
  /// absent).
  virtual bool Delete(std::string_view path) = 0;
};

/// Read's limit in bytes: far above any real panel or configuration, below what exhausts a 32-bit
/// process.
inline constexpr std::size_t kLargestFile = std::size_t{256} * 1024 * 1024;

}  // namespace panelkit
