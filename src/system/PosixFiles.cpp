#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>

#include "system/DiskFiles.h"
#include "system/FileErrors.h"
#include "system/PosixDescriptor.h"

namespace zek {

FileContent DiskFiles::Read(const std::string& path) const {
  FileContent content;
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen()) return {{}, FileErrorOf(path, errno)};
  struct stat status = {};
  if (::fstat(file.Number(), &status) != 0) return {{}, FileErrorOf(path, errno)};
  if (S_ISDIR(status.st_mode)) return {{}, FileErrorOf(path, EISDIR)};
  if (!S_ISREG(status.st_mode))
    return {{}, FileErrorOf(path, EINVAL)};  // a pipe could make us wait
  const auto expected = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0));
  content.bytes.resize(std::min(expected, kLargestFile) + 1);  // one more shows the end at once
  std::size_t used = 0;
  while (true) {
    if (used > kLargestFile) return {{}, FileError{path, FileError::Reason::TooLarge, {}}};
    if (used == content.bytes.size()) content.bytes.resize(used * 2);
    const ssize_t got = ::read(file.Number(), &content.bytes[used], content.bytes.size() - used);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return {{}, FileErrorOf(path, errno)};
    if (got == 0) break;
    used += static_cast<std::size_t>(got);
  }
  content.bytes.resize(used);
  return content;
}

std::optional<FileError> DiskFiles::MakeDirectory(const std::string& path) {
  if (::mkdir(path.c_str(), 0777) == 0 && FlushDirectoryOf(path)) return std::nullopt;
  const int code = errno;
  std::error_code error;
  if (code == EEXIST && std::filesystem::is_directory(path, error)) return std::nullopt;
  return FileErrorOf(path, code);
}

std::optional<FileError> DiskFiles::Remove(const std::string& path) {
  if (::unlink(path.c_str()) == 0) return std::nullopt;
  // Of a folder that is gone, as a network drive can be, nobody knows what it holds.
  struct stat status = {};
  const int code = errno;
  if (code == ENOENT && ::stat(DirectoryOf(path).c_str(), &status) == 0) return std::nullopt;
  return FileErrorOf(path, code);
}

}  // namespace zek
