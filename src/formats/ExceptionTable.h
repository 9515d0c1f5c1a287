#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "formats/CatalogueFields.h"

namespace zek {

/// Whole minutes since 1899-12-30 00:00: exact, unlike days with a fraction. Up to `kMinutesOfDay`
/// (one day) a moment is only a time of day, including 24:00; above that it has a date.
using Moment = std::int64_t;

struct DateParts {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;
};

/// Returns 00:00 of a date. Numbers are rounded. Years 0 to 29 become 2000 to 2029, years 30 to 99
/// 1930 to 1999; then the year is limited to 100 to 9999 and the month to 1 to 12. A day beyond its
/// month rolls over (31 February is a day in March). Numbers of any size are safe.
Moment DateMoment(double year, double month, double day);

/// Converts hours and minutes to minutes; more than a day gives a moment with a date.
Moment TimeMoment(double hours, double minutes);

DateParts DateOf(Moment moment);
int TimeOfDay(Moment moment);  // 0 to 1439

inline constexpr std::size_t kExceptionRows = 8;

/// One exception: from `start` to `stop` its values replace those of the weekday catalogue.
struct OvcRow {
  bool used = false;
  Moment start = 0;
  Moment stop = 0;  // only a time if there is no stop date
  float valueOn = 0;
  float valueOff = kNoValue;
  /// Of a row that is new in an editor: its stop was not entered yet, and goes with the start.
  bool stopFollows = false;

  bool HasStopDate() const { return stop > kMinutesOfDay; }
  /// Returns 0 to 1440: a stop of 24:00 without a date stays 24:00.
  int StopTime() const { return stop == kMinutesOfDay ? kMinutesOfDay : TimeOfDay(stop); }

  /// Compares what is shown and saved.
  bool operator==(const OvcRow& other) const {
    return used == other.used && start == other.start && stop == other.stop &&
           valueOn == other.valueOn && valueOff == other.valueOff;
  }
};

/// The exception catalogue of one time control.
struct ExceptionTable {
  std::array<OvcRow, kExceptionRows> rows;

  bool operator==(const ExceptionTable&) const = default;
};

/// True when both tables show and save the same. The fields of unused rows do not count: they show
/// only after the row is used again.
struct SameExceptions {
  bool operator()(const ExceptionTable& left, const ExceptionTable& right) const;
};

}  // namespace zek
