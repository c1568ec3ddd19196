// Files that exist for others only when they are whole.
#pragma once

#include <string>
#include <string_view>

#include "platform/windows/file_errors.h"
#include "platform/windows/handle.h"

namespace panelkit::windows {

/// A new file that goes away again unless it is kept. Closed to other programs until it is whole.
class NewFile {
 public:
  /// Creates the file `name` (a path of FilePath) with these attributes. Not there, with
  /// GetLastError set, if it cannot be created or its name is taken.
  NewFile(std::wstring name, DWORD attributes);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// Whether it was created and has not got another name.
  bool IsThere() const { return discard_; }
  HANDLE Get() const { return file_.Get(); }
  const std::wstring& Name() const { return name_; }

  /// Has the content reach the disk. False, with GetLastError set, on failure.
  bool Flush() const { return FlushFileBuffers(file_.Get()) != 0; }

  /// Closes the file and gives it another name in one step; a file there, unless read-only, gives
  /// way. False, with GetLastError set, if it cannot.
  bool KeepAs(const std::wstring& name, const ShortLocks& locks);

 private:
  std::wstring name_;
  Handle file_;
  bool discard_;
};

/// The path of a file that is not there yet, in the same folder as `path` (both of FilePath). Other
/// processes choose other names.
std::wstring TemporaryPathBeside(const std::wstring& path);

/// Deletes what TemporaryPathBeside named, in the same folder as `path`, for processes that run no
/// more.
void RemoveStaleBeside(const std::wstring& path);

}  // namespace panelkit::windows
