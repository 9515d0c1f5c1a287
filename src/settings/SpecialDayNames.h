#pragma once

#include <array>
#include <string>
#include <string_view>

#include "settings/Profile.h"

namespace zek {

/// What the plant calls SD1 to SD7; "" without a name.
using SpecialDayNames = std::array<std::string, 7>;

/// Reads section "SDNames": "SD1" for all objects, "OBJECT.SD1" for one of them.
SpecialDayNames ReadSpecialDayNames(const Profile& profile, std::string_view object);

/// Returns "SD1 Jullov"; without a name, only the key.
inline std::string WithDayName(const std::string& key, std::size_t number,
                               const SpecialDayNames& names) {
  const std::string& name = names.at(number);
  return name.empty() ? key : key + " " + name;
}

}  // namespace zek
