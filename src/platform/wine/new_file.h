// Files that exist for others only when they are whole.
#pragma once

#include <sys/stat.h>

#include <string>

#include "platform/wine/native_file.h"

namespace panelkit {

/// A new file, open for reading and writing, that goes away again unless it is kept.
class NewFile {
 public:
  /// Creates the file; with errno set where it cannot be, or where its name is taken.
  NewFile(std::string path, mode_t mode);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  bool IsOpen() const { return file_.IsOpen(); }
  int Descriptor() const { return file_.Descriptor(); }
  const OpenFile& File() const { return file_; }

  /// Has the content reach the disk.
  bool Flush() const;

  /// Closes the file and keeps it. False, with errno set, where its content could not be kept
  /// after all.
  bool Keep();

  /// Closes the file and gives it another name in one step; a file or a link there gives way.
  /// False, with errno set, where it cannot.
  bool KeepAs(const std::string& path);

 private:
  std::string path_;
  OpenFile file_;
  bool discard_;
};

/// The path of a file that is not there yet, in the same folder as `path` and of a hidden name, so
/// that no listing shows it. Other processes choose other names.
std::string TemporaryPathBeside(const std::string& path);

/// Removes the files of such names in a folder whose process no longer runs: it was killed.
void RemoveStaleTemporaries(const std::string& folder);

}  // namespace panelkit
