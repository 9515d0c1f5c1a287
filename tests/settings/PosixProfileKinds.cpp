#include "settings/FileProfile.h"
#include "settings/ProfileKinds.h"

namespace zek::test {

std::vector<ProfileKind> ProfileKinds() {
  return {{"OwnCode", [](Files& files, const std::string& path) {
             return std::make_unique<FileProfile>(files, path);
           }}};
}

}  // namespace zek::test
