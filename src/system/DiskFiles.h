#pragma once

#include <string>

#include "system/Files.h"

namespace zek {

/// Makes an error from the system's code: errno, or on Windows the value of GetLastError.
FileError FileErrorOf(const std::string& path, int code);

/// The real disk. Data is first written to a temporary file (`BesideName`) in the target's
/// directory; links are followed, except on Windows. A temporary file left by a crash is never
/// read; the next write in that directory deletes it, on Windows after an hour. A replaced file
/// keeps its permissions.
class DiskFiles final : public Files {
 public:
  bool Exists(const std::string& path) const override;
  FileContent Read(const std::string& path) const override;
  std::optional<FileError> Write(const std::string& path, std::string_view bytes) override;
  std::optional<FileError> Append(const std::string& path, std::string_view bytes) override;
  CreatedFile Create(const std::string& path) override;
  std::optional<FileError> MakeDirectory(const std::string& path) override;
  std::optional<FileError> Remove(const std::string& path) override;
  std::vector<std::string> List(const std::string& directory) const override;
  TakenLock Lock(const std::string& path) override;
};

}  // namespace zek
