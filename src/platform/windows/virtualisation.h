// The private copies that Windows Vista and later make in place of files that a user may not
// change.
//
// They are made for 32-bit programs without a requested execution level, such as the simulator and
// ours, that are started without an administrator's rights: what such a program writes, changes or
// deletes under "Program Files" is written, changed or deleted under
// "%LOCALAPPDATA%\VirtualStore", with success, and is seen by this user's programs of that kind
// alone, in place of what all others see.
#pragma once

#include <string>

#include "platform/windows/handle.h"

namespace panelkit::windows {

/// While it lives, this process sees and changes the files that all users have: what the user may
/// not do fails with ERROR_ACCESS_DENIED. Does nothing where Windows makes no private copies for
/// this process. Not more than one lives at a time.
class FilesOfAllUsers {
 public:
  FilesOfAllUsers();
  ~FilesOfAllUsers();
  FilesOfAllUsers(const FilesOfAllUsers&) = delete;
  FilesOfAllUsers& operator=(const FilesOfAllUsers&) = delete;

  /// Whether this process would get private copies without it.
  bool HidesCopies() const { return static_cast<bool>(token_); }

 private:
  Handle token_;  ///< Of this process, if it is to be set back.
};

/// What stands for all users under the name of a file that this process sees.
enum class Seen {
  TheSame,
  Another,  ///< This user has a private copy of it.
  Nothing,  ///< This user alone has such a file.
};

/// For a path of FilePath that names a file.
Seen OthersSee(const std::wstring& path);

}  // namespace panelkit::windows
