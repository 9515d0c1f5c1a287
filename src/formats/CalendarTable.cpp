#include "formats/CalendarTable.h"

#include <algorithm>

namespace zek {
namespace {

constexpr int kFebruary = 1;
constexpr int kDecember = 11;
constexpr std::array kMonthLengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};

// The layout of a date key in bits.
constexpr int kDayBits = 5;
constexpr int kYearShift = 9;
constexpr std::int32_t kDayMask = 31;
constexpr std::int32_t kMonthMask = 15;
constexpr std::int32_t kYearSize = 1 << kYearShift;
constexpr std::int32_t kMonthSize = 1 << kDayBits;

bool ByDate(const CalendarEntry& left, const CalendarEntry& right) {
  return left.date < right.date;
}

}  // namespace

int MonthLength(int year, int month) {
  if (month == kFebruary && year % 4 == 0) return 29;
  return kMonthLengths.at(static_cast<std::size_t>(month));
}

bool IsDate(const CalendarDate& date) {
  return date.month >= 0 && date.month <= kDecember && date.day >= 1 &&
         date.day <= MonthLength(date.year, date.month);
}

CalendarDate NextDay(CalendarDate date) {
  if (date.day < MonthLength(date.year, date.month)) return {date.year, date.month, date.day + 1};
  if (date.month < kDecember) return {date.year, date.month + 1, 1};
  return {date.year + 1, 0, 1};
}

std::int32_t PackDate(const CalendarDate& date, int baseYear) {
  return (date.year - baseYear) * kYearSize + date.month * kMonthSize + date.day - 1;
}

CalendarDate UnpackDate(std::int32_t key, int baseYear) {
  // The shift rounds down, so it is also right for years before the base year.
  return {baseYear + (key >> kYearShift), (key >> kDayBits) & kMonthMask, (key & kDayMask) + 1};
}

std::int32_t NextKey(std::int32_t key, int baseYear) {
  constexpr int shortestMonth = 28;
  if ((key & kDayMask) + 1 < shortestMonth) return key + 1;
  return PackDate(NextDay(UnpackDate(key, baseYear)), baseYear);
}

std::int16_t CalendarTable::TypeOn(const CalendarDate& date) const {
  const std::int32_t key = PackDate(date, baseYear_);
  const auto used = Used();
  const auto found = std::find_if(used.begin(), used.end(),
                                  [key](const auto& entry) { return entry.date == key; });
  return found == used.end() ? kNoDayType : found->type;
}

bool CalendarTable::Add(const CalendarDate& first, const CalendarDate& last, std::int16_t type) {
  const std::int32_t end = PackDate(last, baseYear_);
  for (std::int32_t key = PackDate(first, baseYear_); key <= end; key = NextKey(key, baseYear_)) {
    if (used_ == entries_.size()) return false;
    entries_.at(used_++) = {key, type};
  }
  return true;
}

bool CalendarTable::Give(const CalendarDate& first, const CalendarDate& last, std::int16_t type) {
  CalendarTable changed = *this;
  changed.Remove(PackDate(first, baseYear_), PackDate(last, baseYear_));
  if (type != kNoDayType && !changed.Add(first, last, type)) return false;
  *this = changed;
  return true;
}

void CalendarTable::Remove(std::int32_t first, std::int32_t last) {
  const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(used_);
  const auto kept = std::remove_if(entries_.begin(), end, [first, last](const auto& entry) {
    return entry.date >= first && entry.date <= last;
  });
  std::fill(kept, end, CalendarEntry{});
  used_ = static_cast<std::size_t>(kept - entries_.begin());
}

void CalendarTable::Sort() {
  const auto end = entries_.begin() + static_cast<std::ptrdiff_t>(used_);
  std::stable_sort(entries_.begin(), end, ByDate);
}

bool SameCalendar::operator()(CalendarTable left, CalendarTable right) const {
  left.Sort();
  right.Sort();
  return left == right;
}

}  // namespace zek
