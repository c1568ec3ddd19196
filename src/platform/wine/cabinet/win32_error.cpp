#include "platform/wine/cabinet/win32_error.h"

#include <cerrno>

namespace panelkit {

std::uint32_t Win32ErrorOf(int error, std::uint32_t otherwise) {
  switch (error) {
    case ENOENT:
      return ERROR_FILE_NOT_FOUND;
    case ENOTDIR:
    case ELOOP:
      return ERROR_PATH_NOT_FOUND;
    case EMFILE:
    case ENFILE:
      return ERROR_TOO_MANY_OPEN_FILES;
    case EACCES:
    case EPERM:
    case EISDIR:
      return ERROR_ACCESS_DENIED;
    case ENOMEM:
      return ERROR_NOT_ENOUGH_MEMORY;
    case EROFS:
      return ERROR_WRITE_PROTECT;
    case EBUSY:
    case ETXTBSY:
      return ERROR_SHARING_VIOLATION;
    case EFBIG:
      return ERROR_HANDLE_DISK_FULL;
    case ENAMETOOLONG:
      return ERROR_BUFFER_OVERFLOW;
    case ENOSPC:
    case EDQUOT:
      return ERROR_DISK_FULL;
    default:
      return otherwise;
  }
}

}  // namespace panelkit
