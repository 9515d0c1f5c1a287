#pragma once

#include "app/Files.h"

namespace zek {

/// The real disk. Writing goes to "NAME.zvtmp" beside the file; a left-over of that name from a
/// crash is overwritten by the next write and never read.
class DiskFiles final : public Files {
 public:
  bool Exists(const std::string& path) const override;
  FileContent Read(const std::string& path) const override;
  std::optional<FileError> Write(const std::string& path, std::string_view bytes) override;
  std::optional<FileError> Remove(const std::string& path) override;
  std::vector<std::string> List(const std::string& directory) const override;
};

}  // namespace zek
