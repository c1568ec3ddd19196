// Files that exist for others only when they are whole.
#pragma once

#include <sys/stat.h>
#include <sys/types.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/wine/native_file.h"

namespace panelkit {

/// The permissions of a new file that nobody else may read.
inline constexpr mode_t kOwnerOnly = 0600;

/// A new file, open for reading and writing, that is removed again unless it is kept. It is locked
/// (flock(2)) while it is open, which tells it from one that a killed process left.
class NewFile {
 public:
  /// Creates the file; with errno set if it cannot be, or if its name is taken.
  NewFile(std::string path, mode_t mode);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  bool IsOpen() const { return file_.IsOpen(); }
  int Descriptor() const { return file_.Descriptor(); }
  const OpenFile& File() const { return file_; }

  /// Flushes the content to the disk. False, with errno set, on failure.
  bool Flush() const;

  /// Closes the file and keeps it. False, with errno set, if its content could not be kept after
  /// all.
  bool Keep();

  /// Closes the file and gives it another name in one step; a file or a link there gives way.
  /// False, with errno set, if it cannot.
  bool KeepAs(const std::string& path);

 private:
  std::string path_;
  OpenFile file_;
  bool discard_;
};

/// A path in `folder` at which nothing is: `start`, this process's number, "-", a number, `end`.
std::string UnusedPath(const std::string& folder, std::string_view start, std::string_view end);

/// The number of the process that chose a name by UnusedPath; nullopt if `name` is no such name.
std::optional<pid_t> MakerOf(std::string_view name, std::string_view start, std::string_view end);

/// Whether a NewFile of the process `maker`, opened now by another descriptor, was left behind: its
/// lock is free, and that process has ended or (its number may be in use again) the file is older
/// than a minute.
bool IsLeftBehind(const OpenFile& file, pid_t maker);

/// The path of a file that is not there yet, in the same folder as `path` and of a hidden name, so
/// that no listing shows it. Other processes choose other names. The first call for a folder
/// removes the files of such names that killed processes left there.
std::string TemporaryPathBeside(const std::string& path);

}  // namespace panelkit
