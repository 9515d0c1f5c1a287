#include "settings/FileProfile.h"
#include "settings/Profile.h"

namespace zek {

std::unique_ptr<Profile> OpenSettingsFile(Files& files, const std::string& path) {
  return std::make_unique<FileProfile>(files, path);
}

}  // namespace zek
