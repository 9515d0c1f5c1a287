#include <windows.h>

#include "system/FileErrors.h"
#include "system/WinText.h"

namespace zek {

FileError FileErrorOf(const std::string& path, int code) {
  using Reason = FileError::Reason;
  Reason reason = Reason::Other;
  switch (code) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:  // not so of a drive or a computer that is away: files may be there
      reason = Reason::Missing;
      break;
    case ERROR_ACCESS_DENIED:
      reason = Reason::Denied;
      break;
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
      reason = Reason::InUse;
      break;
    case ERROR_FILENAME_EXCED_RANGE:
      reason = Reason::NameTooLong;
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
  // The system finds no folder of that name then.
  constexpr std::size_t longest = MAX_PATH - 2;
  if (code == ERROR_PATH_NOT_FOUND && WideFromUtf8(path).size() > longest) {
    reason = Reason::NameTooLong;
  }
  return {path, reason, SystemMessage(code)};
}

}  // namespace zek
