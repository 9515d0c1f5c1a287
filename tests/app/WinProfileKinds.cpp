#include "app/FileProfile.h"
#include "app/ProfileKinds.h"
#include "app/WinProfile.h"

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
