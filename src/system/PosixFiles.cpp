#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "system/BesideName.h"
#include "system/DiskFiles.h"

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

/// Owns a file descriptor and closes it exactly once.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  bool IsOpen() const { return number_ >= 0; }
  int Number() const { return number_; }
  int Release() {
    const int number = number_;
    number_ = -1;
    return number;
  }
  /// False with errno when the system reports a late write error.
  bool Close() {
    const int number = Release();
    return number < 0 || ::close(number) == 0;
  }

 private:
  int number_;
};

/// Returns the directory of `path` with "/" at its end, or "." if it has none.
std::string DirectoryOf(const std::string& path);

/// Flushes the directory of `path` to the disk, without which a crash can lose a new name. Returns
/// false, with errno set, on failure; a file system that does not support it is not a failure.
bool FlushDirectoryOf(const std::string& path);

namespace {

// Returns how many bytes were written: all of them, or fewer after an error, which is in errno.
std::size_t WriteAll(int descriptor, std::string_view bytes) {
  std::size_t done = 0;
  while (done < bytes.size()) {
    const std::string_view rest = bytes.substr(done);
    const ssize_t written = ::write(descriptor, rest.data(), rest.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) break;
    done += static_cast<std::size_t>(written);
  }
  return done;
}

bool IsDeleted(int descriptor) {
  struct stat status = {};
  return ::fstat(descriptor, &status) == 0 && status.st_nlink == 0;
}

// False if the file was renamed or deleted: the name may now belong to another file.
bool IsStillNamed(int descriptor, const char* path) {
  struct stat opened = {};
  struct stat named = {};
  return ::fstat(descriptor, &opened) == 0 && ::lstat(path, &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// The lock marks the file as being written. The system releases it when the process ends, even
// after a crash or on another computer.
bool Lock(int descriptor) { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0; }

// Deletes temporary files left by killed programs; a locked one belongs to a running program.
void Sweep(const std::string& directory) {
  std::error_code error;
  for (std::filesystem::directory_iterator at(directory, error), end; !error && at != end;
       at.increment(error)) {
    if (!IsBesideName(at->path().filename().native())) continue;
    const Descriptor left(
        ::open(at->path().c_str(), O_WRONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (left.IsOpen() && Lock(left.Number()) && IsStillNamed(left.Number(), at->path().c_str())) {
      ::unlink(at->path().c_str());
    }
  }
}

// Creates a temporary file beside the target; on failure the descriptor is -1 and errno is set.
std::pair<int, std::string> OpenBeside(const std::string& target, mode_t mode) {
  for (int attempt = 1; attempt <= kMostBesideNames; ++attempt) {
    std::string path = BesideName(target, static_cast<unsigned long>(::getpid()), attempt);
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!file.IsOpen() && errno == EEXIST) continue;
    if (!file.IsOpen()) return {-1, {}};
    // Another program's `Sweep` can delete the file before it is locked; it deletes nothing where
    // the file system has no locks.
    const bool swept = !Lock(file.Number()) && errno == EWOULDBLOCK;
    if (!swept && !IsDeleted(file.Number())) return {file.Release(), std::move(path)};
  }
  errno = EEXIST;
  return {-1, {}};
}

class DiskOutputFile final : public OutputFile {
 public:
  // `path` is for messages; `beside` is the temporary file that replaces `target`.
  DiskOutputFile(int file, std::string path, std::string target, std::string beside)
      : file_(file),
        path_(std::move(path)),
        target_(std::move(target)),
        beside_(std::move(beside)) {}
  DiskOutputFile(const DiskOutputFile&) = delete;
  DiskOutputFile& operator=(const DiskOutputFile&) = delete;
  ~DiskOutputFile() override {
    if (!inPlace_) ::unlink(beside_.c_str());
  }

  std::optional<FileError> Append(std::string_view bytes) override {
    if (!torn_ && WriteAll(file_.Number(), bytes) == bytes.size()) {
      size_ += static_cast<off_t>(bytes.size());
      return std::nullopt;
    }
    const int code = torn_ ? EIO : errno;
    // Roll back a partial write.
    torn_ = ::ftruncate(file_.Number(), size_) != 0 || ::lseek(file_.Number(), size_, SEEK_SET) < 0;
    return FileErrorOf(path_, code);
  }

  std::optional<FileError> Commit() override {
    if (torn_) return FileErrorOf(path_, EIO);
    if (::fsync(file_.Number()) != 0 || ::rename(beside_.c_str(), target_.c_str()) != 0) {
      return FileErrorOf(path_, errno);
    }
    inPlace_ = true;
    // The file is complete, but a crash can still lose its name until the directory is flushed.
    if (!FlushDirectoryOf(target_) || !file_.Close()) return FileErrorOf(path_, errno);
    return std::nullopt;
  }

 private:
  Descriptor file_;
  std::string path_;
  std::string target_;
  std::string beside_;
  off_t size_ = 0;
  bool torn_ = false;  // a partial write could not be rolled back
  bool inPlace_ = false;
};

class PosixLock final : public FileLock {
 public:
  explicit PosixLock(int file) : file_(file) {}

 private:
  Descriptor file_;
};

}  // namespace

std::string DirectoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

bool FlushDirectoryOf(const std::string& path) {
  const Descriptor directory(::open(DirectoryOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!directory.IsOpen()) return errno == EACCES;  // a directory without read permission
  return ::fsync(directory.Number()) == 0 || errno == EINVAL || errno == ENOTSUP;
}

CreatedFile DiskFiles::Create(const std::string& path) {
  std::error_code error;
  const std::filesystem::path behindLinks = std::filesystem::canonical(path, error);
  if (error && error != std::errc::no_such_file_or_directory) {
    return {nullptr, FileErrorOf(path, error.value())};
  }
  const std::string target = error ? path : behindLinks.string();
  struct stat old = {};
  const bool replaces = ::stat(target.c_str(), &old) == 0;
  if (!replaces && errno != ENOENT) return {nullptr, FileErrorOf(path, errno)};
  Sweep(DirectoryOf(target));
  // At no time may the new file be readable to users who can't read the old one.
  const mode_t mode = replaces ? old.st_mode & 0777 : 0666;
  auto [file, beside] = OpenBeside(target, mode);
  if (file < 0) return {nullptr, FileErrorOf(path, errno)};
  if (replaces) ::fchmod(file, old.st_mode & 07777);
  return {std::make_unique<DiskOutputFile>(file, path, target, std::move(beside)), std::nullopt};
}

std::optional<FileError> DiskFiles::Append(const std::string& path, std::string_view bytes) {
  constexpr int flags = O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NONBLOCK;
  Descriptor file(::open(path.c_str(), flags, 0666));
  if (!file.IsOpen()) return FileErrorOf(path, errno);
  struct stat before = {};
  if (::fstat(file.Number(), &before) != 0) return FileErrorOf(path, errno);
  if (!S_ISREG(before.st_mode)) return FileErrorOf(path, EINVAL);  // writing a pipe could block
  const std::size_t written = WriteAll(file.Number(), bytes);
  if (written == bytes.size() && file.Close()) return std::nullopt;
  const int code = errno;
  // Roll back a partial write, unless another program has appended something too.
  struct stat after = {};
  const off_t own = before.st_size + static_cast<off_t>(written);
  if (written > 0 && ::stat(path.c_str(), &after) == 0 && after.st_size == own)
    static_cast<void>(::truncate(path.c_str(), before.st_size) == 0);
  return FileErrorOf(path, code);
}

FileContent DiskFiles::Read(const std::string& path) const {
  FileContent content;
  const Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen()) return {{}, FileErrorOf(path, errno)};
  struct stat status = {};
  if (::fstat(file.Number(), &status) != 0) return {{}, FileErrorOf(path, errno)};
  if (S_ISDIR(status.st_mode)) return {{}, FileErrorOf(path, EISDIR)};
  if (!S_ISREG(status.st_mode))
    return {{}, FileErrorOf(path, EINVAL)};  // reading a pipe could block
  const auto expected = static_cast<std::size_t>(std::max<off_t>(status.st_size, 0));
  content.bytes.resize(std::min(expected, kLargestFile) + 1);  // one more detects the end
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
  const std::string name = path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
  if (::mkdir(name.c_str(), 0777) == 0 && FlushDirectoryOf(name)) return std::nullopt;
  const int code = errno;
  std::error_code error;
  if (code == EEXIST && std::filesystem::is_directory(path, error)) return std::nullopt;
  return FileErrorOf(path, code);
}

std::optional<FileError> DiskFiles::Remove(const std::string& path) {
  if (::unlink(path.c_str()) == 0) return std::nullopt;
  // If the folder is missing, as on a disconnected network drive, the file may still exist.
  struct stat status = {};
  const int code = errno;
  if (code == ENOENT && ::stat(DirectoryOf(path).c_str(), &status) == 0) return std::nullopt;
  return FileErrorOf(path, code);
}

TakenLock DiskFiles::Lock(const std::string& path) {
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (!file.IsOpen()) return {nullptr, FileErrorOf(path, errno)};
  if (!zek::Lock(file.Number())) {
    return {nullptr, FileErrorOf(path, errno == EWOULDBLOCK ? EBUSY : errno)};
  }
  return {std::make_unique<PosixLock>(file.Release()), std::nullopt};
}

}  // namespace zek
