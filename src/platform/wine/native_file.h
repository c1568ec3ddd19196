// Files by native path: the few steps that the back end needs of the system.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/files.h"

namespace panelkit {

/// An open file, closed at its end.
class OpenFile {
 public:
  OpenFile() = default;
  /// Opens as open(2) does, never inherited by other programs.
  OpenFile(const std::string& path, int flags, unsigned mode = 0);
  OpenFile(OpenFile&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}
  OpenFile& operator=(OpenFile&& other) noexcept;
  ~OpenFile();

  bool IsOpen() const { return descriptor_ >= 0; }
  int Descriptor() const { return descriptor_; }

  /// The same open file once more: what it has locked stays so until both are closed.
  OpenFile Twin() const;

  /// False if what was written could not be kept after all.
  bool Close();

 private:
  int descriptor_ = -1;
};

/// What an error number of a file call means for the user; never None.
FileFault FaultOf(int error);

/// What a path reaches, links followed; nullopt with errno set if it cannot be reached.
std::optional<struct stat> StatusOf(const std::string& path);

/// Whether both were taken of the same file or folder, unchanged in between as far as size and time
/// stamp tell.
bool IsSameState(const struct stat& a, const struct stat& b);

/// One read(2), not stopped by signals; the number of bytes, 0 at the end, nullopt on failure.
std::optional<std::size_t> ReadSome(int descriptor, char* buffer, std::size_t size);

/// Writes all bytes, waiting where the receiver is busy. False on failure.
bool WriteAll(int descriptor, std::string_view bytes);

/// The content of a plain file of at most `limit` bytes. Never waits for a pipe's other end.
FileContent ReadPlainFile(const std::string& path, std::size_t limit);

/// Flushes a folder's entries to the disk. True also where the file system or the folder's
/// permissions leave no way to ask for it.
bool FlushFolder(const std::string& folder);

/// The folder of an absolute native path.
std::string FolderOf(const std::string& path);

/// The last part of an absolute native path.
std::string_view NameOf(std::string_view path);

}  // namespace panelkit
