// Files that exist for others only when they are whole.
#pragma once

#include <string>
#include <string_view>

#include "platform/windows/file_errors.h"
#include "platform/windows/handle.h"

namespace panelkit::windows {

/// A new file that the destructor deletes unless it was kept. No other program can open it before.
class NewFile {
 public:
  /// Creates the file `name` (a path of FilePath) with these attributes and flags of CreateFile.
  /// IsThere() is false, with GetLastError set, if it cannot be created or its name is taken.
  NewFile(std::wstring name, DWORD attributes);
  ~NewFile();
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// Whether it was created and has not got another name.
  bool IsThere() const { return discard_; }
  HANDLE Get() const { return file_.Get(); }
  const std::wstring& Name() const { return name_; }

  /// Flushes the content to the disk. False, with GetLastError set, on failure.
  bool Flush() const { return FlushFileBuffers(file_.Get()) != 0; }

  /// Closes the file and gives it another name in one step, in place of a file there that is not
  /// read-only. False, with GetLastError set, if it cannot.
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
/// more. A file of any other name stays.
void RemoveStaleBeside(const std::wstring& path);

}  // namespace panelkit::windows
