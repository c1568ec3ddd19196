// From Windows paths to the native paths of a Wine prefix, and back.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/wine/directory.h"
#include "platform/wine/drives.h"

namespace panelkit {

/// Finds the spellings of a name in a folder, without reading a large folder for each name:
/// remembers the names in folders that were searched. A folder is read again when its time stamp
/// shows a change since, or was so young that a later change might not show.
class Spellings {
 public:
  /// Names in the native folder that equal `name` with case ignored, in byte order.
  std::vector<std::string> Matches(const std::string& folder, std::string_view name);

 private:
  struct Folder {
    DirectoryState state;
    std::unordered_map<std::string, std::vector<std::string>> by_lowered_name;
  };
  static Folder Read(const std::string& folder, const struct stat& status);

  std::unordered_map<std::string, Folder> folders_;
};

/// Resolves Windows paths in UTF-8 as the programs of a Wine prefix see them: both separators and
/// doubled ones work, "." and ".." are taken away before the disk is asked, relative paths start at
/// the process's folder, "\x" at the root of the drive that holds it, "\\?\unix\x" is the native
/// "/x", and trailing dots and blanks of the last part are ignored unless an entry is spelt with
/// them. An entry spelt exactly as asked goes first; otherwise case is ignored and the first of
/// several in byte order is taken. Native paths are absolute. Each call asks the disk; for one
/// thread.
class PathResolver {
 public:
  /// `prefix` is the Wine prefix's native folder; it need not exist.
  explicit PathResolver(std::string_view prefix) : drives_(prefix) {}

  /// The native path of what exists at `windows_path` (links followed, so a dangling one does not
  /// exist).
  std::optional<std::string> Existing(std::string_view windows_path) const;

  /// Where the path leads if each of its parts is spelt as its entry is; nullopt if its drive is
  /// missing. Asks nothing of the disk.
  std::optional<std::string> AsSpelt(std::string_view windows_path) const;

  /// What exists there, as stat(2) tells it.
  std::optional<struct stat> Status(std::string_view windows_path) const;

  /// Where a file or folder of that path is to be created: the native path of its existing folder,
  /// then the last part as it is spelt, or as an entry of that name in other case is. nullopt if
  /// the folder is missing or IsPossible is false.
  std::optional<std::string> ForCreation(std::string_view windows_path) const;

  /// Where ForCreation would put it with the last part spelt exactly as asked.
  std::optional<std::string> SpeltExactly(std::string_view windows_path) const;

  /// The other names in the folder of `native_path` that differ from its last part in case only.
  std::vector<std::string> OtherSpellings(const std::string& native_path) const;

  /// Whether Windows could create a file of that name: false for an empty path and where the last
  /// part holds one of < > : " | ? *, a control character or nothing but dots and blanks.
  static bool IsPossible(std::string_view windows_path);

  /// The Windows path of an absolute native path, through the drive that holds it most closely; as
  /// Wine writes it, "\\?\unix\x", if no drive does. No closing backslash, not even for a drive's
  /// root ("Z:").
  std::string WindowsPathOf(std::string_view native_path) const;

 private:
  /// A native path as spelt; its first `root_length` bytes are the drive's folder.
  struct Location {
    std::string path;
    std::size_t root_length = 0;
  };
  struct Found {
    std::string path;
    struct stat status;
  };
  std::optional<Location> Locate(std::string_view windows_path) const;
  std::optional<Location> LocateRoot(std::string_view& windows_path) const;
  static std::size_t SpeltLength(const Location& location);
  std::optional<Found> Find(const Location& location) const;
  std::optional<Found> FindEntry(const std::string& folder, std::string_view name) const;

  Drives drives_;
  mutable Spellings spellings_;
};

}  // namespace panelkit
