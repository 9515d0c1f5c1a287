#pragma once

#include "app/Files.h"

namespace zek {

/// The real disk. Writing goes to "NAME.zvtmp" and the process's number beside the file (behind a
/// link: beside the file it leads to); a left-over of a crash is never read. A file that is
/// replaced keeps its permissions; on Windows, where they come from the directory, it gets those.
class DiskFiles final : public Files {
 public:
  bool Exists(const std::string& path) const override;
  FileContent Read(const std::string& path) const override;
  std::optional<FileError> Write(const std::string& path, std::string_view bytes) override;
  std::optional<FileError> Remove(const std::string& path) override;
  std::vector<std::string> List(const std::string& directory) const override;
};

}  // namespace zek
