#pragma once

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "settings/Profile.h"

namespace zek::test {

/// A way to read and write settings files on this system. All ways must agree.
struct ProfileKind {
  std::string name;
  std::function<std::unique_ptr<Profile>(Files& files, const std::string& path)> open;
  bool ours = true;  // false: the system's own
};

inline void PrintTo(const ProfileKind& kind, std::ostream* out) { *out << kind.name; }

std::vector<ProfileKind> ProfileKinds();

}  // namespace zek::test
