#include <cerrno>
#include <system_error>

#include "system/FileErrors.h"

namespace zek {

FileError FileErrorOf(const std::string& path, int code) {
  using Reason = FileError::Reason;
  Reason reason = Reason::Other;
  if (code == ENOENT || code == ENOTDIR) reason = Reason::Missing;
  if (code == EACCES || code == EPERM) reason = Reason::Denied;
  if (code == ENOSPC || code == EDQUOT) reason = Reason::Full;
  if (code == EROFS) reason = Reason::ReadOnly;
  if (code == ENAMETOOLONG) reason = Reason::NameTooLong;
  if (code == EBUSY || code == ETXTBSY) reason = Reason::InUse;
  return {path, reason, std::generic_category().message(code)};
}

}  // namespace zek
