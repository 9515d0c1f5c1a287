#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

#include "app/DiskFiles.h"

namespace zek {
namespace {

FileError ErrorOf(const std::string& path, int code) {
  using Reason = FileError::Reason;
  Reason reason = Reason::Other;
  if (code == ENOENT || code == ENOTDIR) reason = Reason::Missing;
  if (code == EACCES || code == EPERM) reason = Reason::Denied;
  if (code == ENOSPC || code == EDQUOT) reason = Reason::Full;
  if (code == EROFS) reason = Reason::ReadOnly;
  return {path, reason, std::generic_category().message(code)};
}

// Closes what it holds; a file descriptor is not closed twice.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }
  // False with errno when the system reports a late write error.
  bool Close() {
    const int number = number_;
    number_ = -1;
    return number < 0 || ::close(number) == 0;
  }

 private:
  int number_;
};

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

std::string BehindLinks(const std::string& path) {
  std::error_code error;
  const std::filesystem::path target = std::filesystem::canonical(path, error);
  return error ? path : target.string();
}

// A rename is on the disk only when its directory is; where that can't be opened the rename holds.
void FlushDirectoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::string directory = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const Descriptor opened(::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.IsOpen()) ::fsync(opened.Number());
}

}  // namespace

FileContent DiskFiles::Read(const std::string& path) const {
  FileContent content;
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen()) return {{}, ErrorOf(path, errno)};
  struct stat status = {};
  if (::fstat(file.Number(), &status) != 0) return {{}, ErrorOf(path, errno)};
  if (S_ISDIR(status.st_mode)) return {{}, ErrorOf(path, EISDIR)};
  if (!S_ISREG(status.st_mode)) return {{}, ErrorOf(path, EINVAL)};  // a pipe could make us wait
  const auto expected = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0));
  content.bytes.resize(std::min(expected, kLargestFile) + 1);  // one more shows the end at once
  std::size_t used = 0;
  while (true) {
    if (used > kLargestFile) return {{}, FileError{path, FileError::Reason::TooLarge, {}}};
    if (used == content.bytes.size()) content.bytes.resize(used * 2);
    const ssize_t got = ::read(file.Number(), &content.bytes[used], content.bytes.size() - used);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return {{}, ErrorOf(path, errno)};
    if (got == 0) break;
    used += static_cast<std::size_t>(got);
  }
  content.bytes.resize(used);
  return content;
}

std::optional<FileError> DiskFiles::Write(const std::string& path, std::string_view bytes) {
  const std::string target = BehindLinks(path);
  const std::string beside = target + ".zvtmp" + std::to_string(::getpid());
  Descriptor file(::open(beside.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666));
  if (!file.IsOpen()) return ErrorOf(path, errno);
  struct stat old = {};
  if (::stat(target.c_str(), &old) == 0) ::fchmod(file.Number(), old.st_mode & 07777);
  if (!WriteAll(file.Number(), bytes) || ::fsync(file.Number()) != 0 || !file.Close() ||
      ::rename(beside.c_str(), target.c_str()) != 0) {
    const int code = errno;
    ::unlink(beside.c_str());
    return ErrorOf(path, code);
  }
  FlushDirectoryOf(target);
  return std::nullopt;
}

std::optional<FileError> DiskFiles::Remove(const std::string& path) {
  if (::unlink(path.c_str()) == 0 || errno == ENOENT) return std::nullopt;
  return ErrorOf(path, errno);
}

}  // namespace zek
