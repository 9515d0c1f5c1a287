#include <cerrno>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <system_error>
#include <utility>

#include "system/BesideName.h"
#include "system/DiskFiles.h"
#include "system/FileErrors.h"
#include "system/PosixDescriptor.h"

namespace zek {
namespace {

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool IsDeleted(int descriptor) {
  struct stat status = {};
  return ::fstat(descriptor, &status) == 0 && status.st_nlink == 0;
}

// False when the file has been renamed or deleted: the name may be somebody else's by now.
bool IsStillNamed(int descriptor, const char* path) {
  struct stat opened = {};
  struct stat named = {};
  return ::fstat(descriptor, &opened) == 0 && ::lstat(path, &named) == 0 &&
         opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

// The lock says that the file is being written; it ends with the process, on whatever computer
// that runs, and however it ends.
bool Lock(int descriptor) { return ::flock(descriptor, LOCK_EX | LOCK_NB) == 0; }

// What killed programs left in the directory. One that is locked belongs to a program that runs.
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

// A file of our own beside the target; its descriptor is -1 with errno when there can be none.
std::pair<int, std::string> OpenBeside(const std::string& target, mode_t mode) {
  for (int attempt = 1; attempt <= kMostBesideNames; ++attempt) {
    std::string path = BesideName(target, static_cast<unsigned long>(::getpid()), attempt);
    Descriptor file(::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode));
    if (!file.IsOpen() && errno == EEXIST) continue;
    if (!file.IsOpen()) return {-1, {}};
    // Another program's sweep can come before the lock; where there are no locks it takes nothing.
    const bool swept = !Lock(file.Number()) && errno == EWOULDBLOCK;
    if (!swept && !IsDeleted(file.Number())) return {file.Release(), std::move(path)};
  }
  errno = EEXIST;
  return {-1, {}};
}

class DiskOutputFile final : public OutputFile {
 public:
  // `path` is what messages name, `beside` is what is written until it replaces `target`.
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
    if (!torn_ && WriteAll(file_.Number(), bytes)) {
      size_ += static_cast<off_t>(bytes.size());
      return std::nullopt;
    }
    const int code = torn_ ? EIO : errno;
    // What was written of these bytes goes again.
    torn_ = ::ftruncate(file_.Number(), size_) != 0 || ::lseek(file_.Number(), size_, SEEK_SET) < 0;
    return FileErrorOf(path_, code);
  }

  std::optional<FileError> Commit() override {
    if (torn_) return FileErrorOf(path_, EIO);
    if (::fsync(file_.Number()) != 0 || ::rename(beside_.c_str(), target_.c_str()) != 0) {
      return FileErrorOf(path_, errno);
    }
    inPlace_ = true;
    // In its place and whole, but until the directory is on the disk it may not stay there.
    if (!FlushDirectoryOf(target_) || !file_.Close()) return FileErrorOf(path_, errno);
    return std::nullopt;
  }

 private:
  Descriptor file_;
  std::string path_;
  std::string target_;
  std::string beside_;
  off_t size_ = 0;
  bool torn_ = false;  // it ends in bytes that could not be taken back
  bool inPlace_ = false;
};

}  // namespace

std::string DirectoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "." : path.substr(0, slash + 1);
}

bool FlushDirectoryOf(const std::string& path) {
  const Descriptor directory(::open(DirectoryOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!directory.IsOpen()) return errno == EACCES;  // one may write into it, not list it
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
  // Nobody may read the new file who must not read the old one, at no time.
  const mode_t mode = replaces ? old.st_mode & 0777 : 0666;
  auto [file, beside] = OpenBeside(target, mode);
  if (file < 0) return {nullptr, FileErrorOf(path, errno)};
  if (replaces) ::fchmod(file, old.st_mode & 07777);
  return {std::make_unique<DiskOutputFile>(file, path, target, std::move(beside)), std::nullopt};
}

}  // namespace zek
