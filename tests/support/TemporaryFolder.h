#pragma once

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "system/Paths.h"

namespace zek::test {

/// A new, empty folder for one test, deleted at its end.
class TemporaryFolder {
 public:
  explicit TemporaryFolder(
      const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    // No other process starts at the same time with the same count.
    static int count = 0;
    const auto now = std::chrono::system_clock::now().time_since_epoch().count();
    path_ = parent / ("zekview-" + std::to_string(now) + "-" + std::to_string(++count));
    std::filesystem::create_directory(path_);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  const std::filesystem::path& Path() const { return path_; }
  /// UTF-8, "/" at its end.
  std::string Name() const { return Utf8Of(path_) + "/"; }

 private:
  std::filesystem::path path_;
};

/// The names of all entries of the folder, sorted, as the system lists them.
inline std::vector<std::string> NamesIn(const TemporaryFolder& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder.Path())) {
    names.push_back(Utf8Of(entry.path().filename()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace zek::test
