#include "app/DiskFiles.h"

#include <algorithm>
#include <system_error>

#include "app/Paths.h"

namespace zek {

bool DiskFiles::Exists(const std::string& path) const {
  std::error_code error;
  return std::filesystem::is_regular_file(PathOf(path), error);
}

std::vector<std::string> DiskFiles::List(const std::string& directory) const {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator at(PathOf(directory), error), end; !error && at != end;
       at.increment(error)) {
    names.push_back(Utf8Of(at->path().filename()));
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace zek
