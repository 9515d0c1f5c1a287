#include "comm/Countdowns.h"

#include <algorithm>

namespace zek {

void Countdowns::Tick() {
  for (std::int16_t* const countdown :
       {&WaitCountdown, &AfterConnectCountdown, &DelayCountdown, &ReplyCountdown}) {
    if (*countdown > 0) --*countdown;
  }
}

std::int16_t TicksOf(double seconds) {
  return static_cast<std::int16_t>(std::clamp(seconds * kTicksPerSecond, 0.0, 32767.0));
}

}  // namespace zek
