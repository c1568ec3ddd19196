#include "platform/windows/file_errors.h"

namespace panelkit::windows {
namespace {

constexpr DWORD kDiskQuotaExceeded = 1295;  // Not in every winerror.h.

constexpr DWORD kPause = 20;  // Milliseconds.
constexpr int kRounds = 50;

/// A denied access is seldom a lock. After so many that outlasted a wait they fail at once: else a
/// folder that is closed to the user would cost a second for each of its files.
constexpr int kDeniedInVain = 3;

}  // namespace

FileFault FaultOf(DWORD error) {
  switch (error) {
    case ERROR_SUCCESS:
      return FileFault::None;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_INVALID_NAME:
      return FileFault::Absent;
    case ERROR_DIRECTORY:
      return FileFault::NotAFile;
    case ERROR_WRITE_PROTECT:
      return FileFault::ReadOnly;
    case ERROR_ACCESS_DENIED:
    case ERROR_NETWORK_ACCESS_DENIED:
      return FileFault::NoAccess;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_UNABLE_TO_REMOVE_REPLACED:
    case ERROR_USER_MAPPED_FILE:
      return FileFault::InUse;
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_DISK_FULL:
    case kDiskQuotaExceeded:
      return FileFault::NoRoom;
    case ERROR_FILE_TOO_LARGE:
      return FileFault::TooLarge;
    default:
      return FileFault::Other;
  }
}

bool ShortLocks::Wait(DWORD error, int round) const {
  const bool denied = error == ERROR_ACCESS_DENIED;
  const bool is_lock = denied || error == ERROR_SHARING_VIOLATION ||
                       error == ERROR_LOCK_VIOLATION || error == ERROR_UNABLE_TO_REMOVE_REPLACED;
  if (is_lock && round < kRounds && !(denied && denied_in_vain_ >= kDeniedInVain)) {
    Sleep(kPause);
    return true;
  }
  if (denied && round == kRounds) ++denied_in_vain_;
  SetLastError(error);
  return false;
}

}  // namespace panelkit::windows
