#include "settings/SpecialDayNames.h"

namespace zek {

SpecialDayNames ReadSpecialDayNames(const Profile& profile, std::string_view object) {
  SpecialDayNames names;
  for (std::size_t day = 0; day < names.size(); ++day) {
    const std::string key = "SD" + std::to_string(day + 1);
    const std::string ofPlant = profile.ReadIni("SDNames", key, "");
    names.at(day) = profile.ReadIni("SDNames", std::string(object) + "." + key, ofPlant);
  }
  return names;
}

}  // namespace zek
