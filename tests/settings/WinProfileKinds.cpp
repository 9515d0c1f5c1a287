#include "settings/FileProfile.h"
#include "settings/ProfileKinds.h"
#include "settings/WinProfile.h"

namespace zek::test {

std::vector<ProfileKind> ProfileKinds() {
  return {{"OwnCode",
           [](Files& files, const std::string& path) {
             return std::make_unique<FileProfile>(files, path);
           }},
          {"SystemCalls",
           [](Files& files, const std::string& path) {
             return std::make_unique<WinProfile>(files, ProfileCallPath(path).value(), path);
           },
           false}};
}

}  // namespace zek::test
