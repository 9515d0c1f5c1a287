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

/// 28 to 31. February has 29 days in every year that 4 divides: all that a calendar can hold.
int MonthLength(int year, int month);

/// True for a month 0 to 11 and a day that it has.
bool IsDate(const CalendarDate& date);

CalendarDate NextDay(CalendarDate date);

/// The date in one number that orders as dates do: the years since the base year × 512 + the month
/// × 32 + the day less 1; below 0 before the base year.
std::int32_t PackDate(const CalendarDate& date, int baseYear);
CalendarDate UnpackDate(std::int32_t key, int baseYear);

/// The key of the day after.
std::int32_t NextKey(std::int32_t key, int baseYear);

/// One place of the calendar: a date (see `PackDate`) and its day type, 0 when it is free.
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

  /// The entries in use, in the order in which they came until they are sorted.
  std::span<const CalendarEntry> Used() const { return std::span(entries_).first(used_); }

  /// `kNoDayType` for a day without an entry.
  std::int16_t TypeOn(const CalendarDate& date) const;

  /// Adds an entry for each day of a run, whatever there is already. False when the places ended
  /// before the run: the days before that are stored.
  bool Add(const CalendarDate& first, const CalendarDate& last, std::int16_t type);

  /// Gives every day of a run one entry of that type, or removes all its entries (`kNoDayType`).
  /// False when there are too few places: nothing has changed then.
  bool Give(const CalendarDate& first, const CalendarDate& last, std::int16_t type);

  /// Orders the entries by date; those of the same date keep their order.
  void Sort();

  bool operator==(const CalendarTable&) const = default;

 private:
  void Remove(std::int32_t first, std::int32_t last);

  int baseYear_;
  std::size_t used_ = 0;
  std::array<CalendarEntry, kCalendarEntries> entries_;  // those in use stand first
};

/// Tables that show and save the same: their entries may stand in another order.
struct SameCalendar {
  bool operator()(CalendarTable left, CalendarTable right) const;
};

}  // namespace zek
