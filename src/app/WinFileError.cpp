#include "app/WinFileError.h"

#include <windows.h>

#include "app/WinText.h"

namespace zek {

FileError WinFileError(const std::string& path, unsigned long code) {
  using Reason = FileError::Reason;
  Reason reason = Reason::Other;
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_NOT_READY:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
      reason = Reason::Missing;
      break;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      reason = Reason::Denied;
      break;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
      reason = Reason::Full;
      break;
    case ERROR_WRITE_PROTECT:
      reason = Reason::ReadOnly;
      break;
    default:
      break;
  }
  return {path, reason, SystemMessage(code)};
}

}  // namespace zek
