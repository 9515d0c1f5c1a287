#include "editors/TimeChoices.h"

#include <algorithm>

#include "formats/WeekdayCells.h"

namespace zek {
namespace {
constexpr int kQuarter = 15;
}  // namespace

std::vector<std::string> QuarterHours() {
  std::vector<std::string> times;
  for (int time = 0; time <= kMinutesOfDay; time += kQuarter) times.push_back(ClockText(time));
  return times;
}

std::string QuarterBeside(std::string_view time, int step) {
  const auto minutes = TypedTime(time);
  if (!minutes || *minutes == kNoTime) return std::string(time);
  const int before = *minutes / kQuarter;
  const bool between = *minutes % kQuarter != 0;
  const int beside = (step < 0 && between ? before : before + step) * kQuarter;
  return ClockText(std::clamp(beside, 0, kMinutesOfDay));
}

}  // namespace zek
