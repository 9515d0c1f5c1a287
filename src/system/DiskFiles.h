#pragma once

#include <string>

#include "system/Files.h"

namespace zek {

/// The error for one of the system's codes: errno, or on Windows what GetLastError returns.
FileError FileErrorOf(const std::string& path, int code);

/// The real disk. Writing goes to a `BesideName` beside the file (behind a link: beside the file it
/// leads to); a left-over of a crash is never read, and deleted by the next write beside it. A file
/// that is replaced keeps its permissions.
class DiskFiles final : public Files {
 public:
  bool Exists(const std::string& path) const override;
  FileContent Read(const std::string& path) const override;
  std::optional<FileError> Write(const std::string& path, std::string_view bytes) override;
  CreatedFile Create(const std::string& path) override;
  std::optional<FileError> MakeDirectory(const std::string& path) override;
  std::optional<FileError> Remove(const std::string& path) override;
  std::vector<std::string> List(const std::string& directory) const override;
};

}  // namespace zek
