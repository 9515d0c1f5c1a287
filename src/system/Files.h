#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zek {

/// Why a file operation failed, for the message that names the file and the reason.
struct FileError {
  enum class Reason { Missing, Denied, Full, ReadOnly, TooLarge, NameTooLong, InUse, Other };
  std::string path;  // as given to the operation
  Reason reason = Reason::Other;
  std::string systemMessage;  // the system's own words, UTF-8
};

struct FileContent {
  std::string bytes;
  std::optional<FileError> error;  // nothing when `bytes` is the whole file
};

/// No file the program reads is larger; one that is gives `TooLarge`.
inline constexpr std::size_t kLargestFile = std::size_t{64} << 20;

/// A file that is written piece by piece. It stands beside its place until `Commit`; without one
/// nothing is left of it, and a file of that name stays as it was. What a killed program leaves of
/// it is deleted when the next file of that directory is written.
class OutputFile {
 public:
  virtual ~OutputFile() = default;

  /// Adds the bytes, all of them or on failure none: the file can still be gone on with.
  virtual std::optional<FileError> Append(std::string_view bytes) = 0;

  /// Flushes the file to the disk and puts it in its place. The last call, once.
  virtual std::optional<FileError> Commit() = 0;
};

/// What `Create` gave: the file, or why there is none.
struct CreatedFile {
  std::unique_ptr<OutputFile> file;
  std::optional<FileError> error;
};

/// The disk. Paths are UTF-8.
class Files {
 public:
  virtual ~Files() = default;

  virtual bool Exists(const std::string& path) const = 0;

  virtual FileContent Read(const std::string& path) const = 0;

  /// Replaces the file as a whole: written beside, flushed to the disk, renamed over. On failure
  /// the old file is still there, whole.
  virtual std::optional<FileError> Write(const std::string& path, std::string_view bytes) = 0;

  /// Begins to write a file, which replaces one of the same name when it is committed.
  virtual CreatedFile Create(const std::string& path) = 0;

  /// A directory that is there already is no error; the one above it has to be there.
  virtual std::optional<FileError> MakeDirectory(const std::string& path) = 0;

  /// Deleting what is not there is no error; that its folder is not there is one.
  virtual std::optional<FileError> Remove(const std::string& path) = 0;

  /// Names (without directory) of the files in `directory`, sorted; empty when it can't be read.
  /// Files that are only being written, or were when their program was killed, are not among them.
  virtual std::vector<std::string> List(const std::string& directory) const = 0;
};

}  // namespace zek
