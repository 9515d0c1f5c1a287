#include "system/DiskFiles.h"

#include <algorithm>
#include <exception>
#include <optional>
#include <system_error>

#include "system/BesideName.h"
#include "system/Paths.h"

namespace zek {

namespace {

// Windows allows file names that are not valid Unicode; the program never creates one.
std::optional<std::string> Utf8If(const std::filesystem::path& path) {
  try {
    return Utf8Of(path);
  } catch (const std::exception&) {
    return std::nullopt;
  }
}

}  // namespace

bool DiskFiles::Exists(const std::string& path) const {
  std::error_code error;
  return std::filesystem::is_regular_file(PathOf(path), error);
}

std::optional<FileError> DiskFiles::Write(const std::string& path, std::string_view bytes) {
  const CreatedFile created = Create(path);
  if (created.error) return created.error;
  if (auto error = created.file->Append(bytes)) return error;
  return created.file->Commit();
}

std::vector<std::string> DiskFiles::List(const std::string& directory) const {
  std::vector<std::string> names;
  std::error_code error;
  for (std::filesystem::directory_iterator at(PathOf(directory), error), end; !error && at != end;
       at.increment(error)) {
    auto name = Utf8If(at->path().filename());
    if (name && !IsBesideName(*name)) names.push_back(std::move(*name));
  }
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace zek
