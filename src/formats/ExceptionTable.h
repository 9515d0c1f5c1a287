#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "formats/CatalogueFields.h"

namespace zek {

/// Whole minutes since 1899-12-30 00:00, which is exact where a number of days with the time of
/// day as its fraction is not. Up to `kMinutesOfDay` (1.0 as days) a moment is a time of day alone,
/// 24:00 included; above that it has a date.
using Moment = std::int64_t;

struct DateParts {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;
};

/// 00:00 of a date. The numbers are rounded, the month is kept within 1 to 12 and the year within
/// 100 to 9999, after years 0 to 29 have become 2000 to 2029 and 30 to 99 1930 to 1999. A day that
/// the month lacks rolls over (31 February is a day in March); numbers of any size do no harm.
Moment DateMoment(double year, double month, double day);

/// Hours and minutes as minutes; more than a day's are days in a moment with a date.
Moment TimeMoment(double hours, double minutes);

DateParts DateOf(Moment moment);
int TimeOfDay(Moment moment);  // 0 to 1439

inline constexpr std::size_t kExceptionRows = 8;

/// One exception: from `start` to `stop` the values hold instead of the weekday catalogue's.
struct OvcRow {
  bool used = false;
  Moment start = 0;
  Moment stop = 0;  // a time alone where there is no stop date
  float valueOn = 0;
  float valueOff = kNoValue;

  bool HasStopDate() const { return stop > kMinutesOfDay; }
  /// 0 to 1440: a stop of 24:00 without a date stays 24:00.
  int StopTime() const { return stop == kMinutesOfDay ? kMinutesOfDay : TimeOfDay(stop); }

  bool operator==(const OvcRow&) const = default;
};

/// The exception catalogue of one time control.
struct ExceptionTable {
  std::array<OvcRow, kExceptionRows> rows;

  bool operator==(const ExceptionTable&) const = default;
};

/// Tables that show and save the same. What is left in an unused row shows only when it is used
/// again.
struct SameExceptions {
  bool operator()(const ExceptionTable& left, const ExceptionTable& right) const;
};

}  // namespace zek
