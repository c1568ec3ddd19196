// The files of a cabinet walk: the cabinets that it reads, and the files that it extracts to.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/wine/native_file.h"
#include "platform/wine/new_file.h"
#include "platform/wine/path_resolver.h"

namespace panelkit {

/// A plain file open for reading, or the code of winerror.h that tells why not.
struct OpenedCabinet {
  std::unique_ptr<OpenFile> file;
  std::uint32_t error = 0;
};

/// Opens the file at a Windows path (UTF-8). Error 2 if there is none, 3 if its folder is missing,
/// 5 for a folder, 13 for a pipe or a device, on which it never waits.
OpenedCabinet OpenCabinet(const PathResolver& paths, std::string_view windows_path);

/// Resolves the paths of files to be written as PathResolver::ForCreation does, but reads each
/// folder only once: the walk itself adds files to the folder, so that the resolver would read it
/// again for each of them.
class TargetPaths {
 public:
  /// `paths` outlives this object.
  explicit TargetPaths(const PathResolver& paths) : paths_(paths) {}

  /// The native path of a file to be written; nullopt if its folder is missing. Removes what a
  /// killed extraction left in the folder, when it first sees it.
  std::optional<std::string> Find(std::string_view windows_path);

 private:
  using NamesByLoweredName = std::unordered_map<std::string, std::string>;

  const PathResolver& paths_;
  std::unordered_map<std::string, NamesByLoweredName> folders_;
};

/// A new file that takes its name in one step when it is whole. Until then it stands beside that
/// place under a temporary name, which the destructor removes; an older file stays as it was.
class TargetFile {
 public:
  /// Creates the file for the native path `path`, without permission to write for anyone if
  /// `read_only`.
  TargetFile(std::string path, bool read_only);

  /// Why the file could not be created (a code of winerror.h), or 0.
  std::uint32_t Error() const { return error_; }

  const OpenFile& File() const { return file_.File(); }

  /// Sets the file's time to a stamp in the FAT layout, taken as local time. A stamp that names no
  /// date leaves the present time.
  void SetTime(std::uint16_t date, std::uint16_t time) const;

  /// Renames the file to `path`, replacing a file or a link there, but no folder (5). 0 or a code
  /// of winerror.h.
  std::uint32_t Commit();

 private:
  std::string path_;
  NewFile file_;
  std::uint32_t error_ = 0;
};

}  // namespace panelkit
