#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace zek {

inline constexpr std::size_t kCalendarEntries = 512;
inline constexpr int kCalendarYears = 6;      // shown: the base year and the five after it
inline constexpr int kCalendarDayTypes = 14;  // 1 to 7 Monday to Sunday, 8 to 14 SD1 to SD7
inline constexpr std::int16_t kNoDayType = 0;

/// A day of the calendar: month 0 to 11, day 1 to 31.
struct CalendarDate {
  int year = 0;
  int month = 0;
  int day = 1;

  bool operator==(const CalendarDate&) const = default;
};

/// The years for which the program computes: of holidays, forecasts and reports.
inline constexpr int kFirstKnownYear = 1990;
inline constexpr int kLastKnownYear = 2099;
constexpr bool IsKnownYear(int year) { return year >= kFirstKnownYear && year <= kLastKnownYear; }

/// Returns 28 to 31. Every year divisible by 4 is a leap year: enough for the years of a calendar.
int MonthLength(int year, int month);

/// True for a month 0 to 11 and a day that exists in it.
bool IsDate(const CalendarDate& date);

CalendarDate NextDay(CalendarDate date);

/// A date as one number with the order of dates: (year - base year) × 512 + month × 32 + day - 1.
/// It is negative before the base year.
std::int32_t PackDate(const CalendarDate& date, int baseYear);
CalendarDate UnpackDate(std::int32_t key, int baseYear);

/// Returns the key of the next day.
std::int32_t NextKey(std::int32_t key, int baseYear);

/// One place of the calendar: a date (see `PackDate`) and its day type, 0 if the place is free.
struct CalendarEntry {
  std::int32_t date = 0;
  std::int16_t type = kNoDayType;

  bool Used() const { return type != kNoDayType; }

  bool operator==(const CalendarEntry&) const = default;
};

/// The special-day calendar of one time control. A date that the controller listed twice has two
/// entries until it is edited; the first one counts.
class CalendarTable {
 public:
  explicit CalendarTable(int baseYear) : baseYear_(baseYear) {}

  int BaseYear() const { return baseYear_; }

  /// The entries in use, in the order in which they were added until `Sort`.
  std::span<const CalendarEntry> Used() const { return std::span(entries_).first(used_); }

  /// Returns `kNoDayType` for a day without an entry.
  std::int16_t TypeOn(const CalendarDate& date) const;

  /// Adds an entry for each day of a run, without replacing any. Returns false if the table became
  /// full; the days before that are stored.
  bool Add(const CalendarDate& first, const CalendarDate& last, std::int16_t type);

  /// Gives every day of a run exactly one entry of that type, or removes all its entries
  /// (`kNoDayType`). Returns false, with nothing changed, if there are too few places.
  bool Give(const CalendarDate& first, const CalendarDate& last, std::int16_t type);

  /// Sorts the entries by date; entries of the same date keep their order.
  void Sort();

  bool operator==(const CalendarTable&) const = default;

 private:
  void Remove(std::int32_t first, std::int32_t last);

  int baseYear_;
  std::size_t used_ = 0;
  std::array<CalendarEntry, kCalendarEntries> entries_;  // those in use come first
};

/// True when both tables show and save the same; the order of the entries does not matter.
struct SameCalendar {
  bool operator()(CalendarTable left, CalendarTable right) const;
};

}  // namespace zek
