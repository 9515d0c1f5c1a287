#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zek {

/// Why a file operation failed; messages show the path and the reason.
struct FileError {
  enum class Reason { Missing, Denied, Full, ReadOnly, TooLarge, NameTooLong, InUse, Other };
  std::string path;  // as given to the operation
  Reason reason = Reason::Other;
  std::string systemMessage;  // the system's text, UTF-8
};

struct FileContent {
  std::string bytes;
  std::optional<FileError> error;  // nothing if `bytes` is the whole file
};

/// The largest file that the program reads, in bytes; a larger one is the error `TooLarge`.
inline constexpr std::size_t kLargestFile = std::size_t{64} << 20;

/// A file that is written piece by piece, under a temporary name until `Commit`. Without `Commit`
/// it is deleted and an existing file of the final name stays unchanged. If the program is killed,
/// the next write in that directory deletes the temporary file.
class OutputFile {
 public:
  virtual ~OutputFile() = default;

  /// Appends all bytes or, on failure, none; the file can still be written afterwards.
  virtual std::optional<FileError> Append(std::string_view bytes) = 0;

  /// Flushes the file to the disk and gives it its final name. Must be the last call.
  virtual std::optional<FileError> Commit() = 0;
};

/// The result of `Create`: the file, or else the error.
struct CreatedFile {
  std::unique_ptr<OutputFile> file;
  std::optional<FileError> error;
};

/// The right to work on a file, until it is destroyed or the process ends, however it ends.
class FileLock {
 public:
  virtual ~FileLock() = default;
};

/// The result of `Lock`: the lock, or else the error.
struct TakenLock {
  std::unique_ptr<FileLock> lock;
  std::optional<FileError> error;  // `InUse` if another program has the lock
};

/// The disk. Paths are UTF-8.
class Files {
 public:
  virtual ~Files() = default;

  virtual bool Exists(const std::string& path) const = 0;

  virtual FileContent Read(const std::string& path) const = 0;

  /// Replaces the whole file: writes a temporary file, flushes it to the disk and renames it. On
  /// failure the file is the old one or, if only the last flush failed, the whole new one.
  virtual std::optional<FileError> Write(const std::string& path, std::string_view bytes) = 0;

  /// Adds the bytes at the end of a file, which is created if it is missing. On failure none of
  /// them is added.
  virtual std::optional<FileError> Append(const std::string& path, std::string_view bytes) = 0;

  /// Starts a new file; `Commit` replaces an existing file of that name.
  virtual CreatedFile Create(const std::string& path) = 0;

  /// An existing directory is not an error; a missing parent is.
  virtual std::optional<FileError> MakeDirectory(const std::string& path) = 0;

  /// A missing file is not an error; a missing folder is.
  virtual std::optional<FileError> Remove(const std::string& path) = 0;

  /// Returns the sorted names (without directory) of the files in `directory`, or none if it can't
  /// be read. Temporary files are left out.
  virtual std::vector<std::string> List(const std::string& directory) const = 0;

  /// Locks an existing file against other locks; it can still be read.
  virtual TakenLock Lock(const std::string& path) = 0;
};

}  // namespace zek
