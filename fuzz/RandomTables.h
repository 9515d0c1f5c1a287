#pragma once

#include <cstdint>
#include <string>

#include "formats/CalendarText.h"
#include "formats/ExceptionText.h"
#include "formats/WeekdayTable.h"

namespace zek::fuzz {

/// Our own random generator, so that a seed gives the same tables on every system.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  std::uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }
  /// 0 to `most`.
  int UpTo(int most) { return static_cast<int>(Next() % (static_cast<unsigned>(most) + 1U)); }
  bool OneIn(int count) { return UpTo(count - 1) == 0; }

 private:
  std::uint64_t state_;
};

/// The name of a time control; with `plt` one that has the "PLT" layout, its number below 100.
std::string RandomName(Random& random, bool plt);

/// Tables that a catalogue line can hold: a weekday table of the "PLT" layout has no stop values
/// and values of at most 6 characters, a ZEK1's exception no stop time without a date.
WeekdayTable RandomWeekday(Random& random, bool plt);
CalendarTable RandomCalendar(Random& random, const CalendarYears& years);
ExceptionTable RandomExceptions(Random& random, Generation generation);

}  // namespace zek::fuzz
