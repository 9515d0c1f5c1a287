#include "plant/Plant.h"

#include <algorithm>

#include "text/Fields.h"

namespace zek::sim {
namespace {

template <typename Items, typename Predicate>
auto* FindIn(Items& items, Predicate predicate) {
  const auto found = std::find_if(items.begin(), items.end(), predicate);
  return found == items.end() ? nullptr : &*found;
}

}  // namespace

bool PlantCatalogue::Put(int number, std::string_view line) {
  const auto place = lines.find(number);
  if (place != lines.end()) {
    place->second = line;
    return true;
  }
  if (lines.size() >= kMostLines) return false;
  lines.emplace(number, line);
  return true;
}

TimeControl* Outstation::FindControl(std::string_view controlName) {
  return FindIn(controls,
                [&](const TimeControl& each) { return EqualNoCase(each.name, controlName); });
}

Outstation* Plant::FindDus(int dus) {
  if (dus == 0) return nullptr;
  return FindIn(outstations, [&](const Outstation& each) { return each.dus == dus; });
}

Outstation* Plant::FindTransparent() {
  const auto isZek1 = [](const Outstation& each) {
    return each.dus == 0 && each.generation == Generation::Zek1;
  };
  Outstation* const zek1 = FindIn(outstations, isZek1);
  if (zek1 != nullptr) return zek1;
  return FindIn(outstations, [](const Outstation& each) { return each.dus == 0; });
}

}  // namespace zek::sim
