#include "settings/Profile.h"

#include "text/Fields.h"

namespace zek {

bool ReadYesNo(const Profile& profile, std::string_view section, std::string_view key,
               std::string_view fallback) {
  return EqualNoCase(profile.ReadIni(section, key, fallback), "YES");
}

}  // namespace zek
