// Files that exist for others only when they are whole.
#pragma once

#include <sys/types.h>

#include <string>

#include "platform/wine/native_file.h"

namespace panelkit {

/// The permissions of a new file that nobody else may read.
inline constexpr mode_t kOwnerOnly = 0600;

/// Asks for a new file of a hidden name that no other has, in the same folder as `path`.
struct Beside {
  const std::string& path;
};

/// A new file, open for reading and writing, that is removed again unless it is kept.
class NewFile {
 public:
  /// Creates the file `path`; with errno set if it cannot be, or if its name is taken.
  NewFile(std::string path, mode_t mode);

  /// Creates a file beside another; with errno set if it cannot be. Once a run for each folder,
  /// removes such files that killed processes left there.
  NewFile(Beside beside, mode_t mode);

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
  bool discard_ = false;
};

}  // namespace panelkit
