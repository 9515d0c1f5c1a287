#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zek {

/// Why a file operation failed, for the message that names the file and the reason.
struct FileError {
  enum class Reason { Missing, Denied, Full, ReadOnly, TooLarge, Other };
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

/// The disk. Paths are UTF-8.
class Files {
 public:
  virtual ~Files() = default;

  virtual bool Exists(const std::string& path) const = 0;

  virtual FileContent Read(const std::string& path) const = 0;

  /// Replaces the file as a whole: written beside, flushed to the disk, renamed over. On failure
  /// the old file is still there, whole.
  virtual std::optional<FileError> Write(const std::string& path, std::string_view bytes) = 0;

  /// Deleting what is not there is no error.
  virtual std::optional<FileError> Remove(const std::string& path) = 0;

  /// Names (without directory) of the files in `directory`, sorted; empty when it can't be read.
  virtual std::vector<std::string> List(const std::string& directory) const = 0;
};

}  // namespace zek
