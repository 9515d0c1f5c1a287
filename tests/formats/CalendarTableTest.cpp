#include <array>
#include <chrono>
#include <gtest/gtest.h>

#include "formats/CalendarTable.h"
#include "formats/Holidays.h"

namespace zek {
namespace {

constexpr int kBaseYear = 2026;

// Compares every day that a line can hold with the calendar of the C++ library.
TEST(CalendarDates, GoOnDayByDay) {
  using namespace std::chrono;
  std::int32_t key = PackDate({1994, 0, 1}, kBaseYear);
  for (sys_days day = 1994y / January / 1; day < sys_days{2100y / January / 1}; day += days{1}) {
    const year_month_day wanted{day};
    const CalendarDate date = UnpackDate(key, kBaseYear);
    ASSERT_EQ(date, (CalendarDate{static_cast<int>(wanted.year()),
                                  static_cast<int>(static_cast<unsigned>(wanted.month())) - 1,
                                  static_cast<int>(static_cast<unsigned>(wanted.day()))}));
    ASSERT_TRUE(IsDate(date));
    const std::int32_t next = NextKey(key, kBaseYear);
    ASSERT_GT(next, key);
    ASSERT_EQ(next, PackDate(NextDay(date), kBaseYear));
    key = next;
  }
  EXPECT_EQ(PackDate({2027, 1, 3}, kBaseYear), 512 + 32 + 2);
  EXPECT_EQ(MonthLength(2100, 1), 29);  // every fourth year is a leap year, without exception
}

TEST(Holidays, AreTheListed) {
  constexpr std::array counts = {0, 11, 11, 11, 11, 11, 6, 7, 10, 4, 8, 7, 4, 0};
  for (int year = 1991; year <= 2004; ++year) {
    int count = 0;
    for (CalendarDate date{year, 0, 1}; date.year == year; date = NextDay(date))
      count += IsHoliday(date) ? 1 : 0;
    EXPECT_EQ(count, counts.at(static_cast<std::size_t>(year - 1991))) << year;
    EXPECT_EQ(IsHoliday({year, 0, 6}) && IsHoliday({year, 4, 1}), count > 0) << year;
    EXPECT_EQ(IsHoliday({year, 11, 26}), year >= 1992 && year <= 1998) << year;
  }
  EXPECT_TRUE(IsHoliday({2001, 10, 3}));
  EXPECT_TRUE(IsHoliday({2002, 5, 25}));
  EXPECT_FALSE(IsHoliday({2026, 11, 25}));
  EXPECT_TRUE(IsHoliday({2026, 11, 25}, OtherYears::Sweden));
  EXPECT_FALSE(IsHoliday({2026, 11, 24}, OtherYears::Sweden));  // only de facto
  EXPECT_FALSE(IsHoliday({2003, 11, 26}, OtherYears::Sweden));  // listed years stay as listed
}

TEST(CalendarTable, GivingReplacesAllEntriesOfADay) {
  CalendarTable table(kBaseYear);
  const CalendarDate eve{2026, 11, 24};
  const CalendarDate boxingDay{2026, 11, 26};
  table.Add(eve, boxingDay, 8);
  table.Add(eve, eve, 9);
  EXPECT_EQ(table.TypeOn(eve), 8);
  EXPECT_TRUE(table.Give(eve, eve, 3));
  EXPECT_EQ(table.TypeOn(eve), 3);
  EXPECT_EQ(table.Used().size(), 3U);
  table.Add(eve, eve, 9);
  EXPECT_TRUE(table.Give({2026, 11, 1}, {2026, 11, 25}, kNoDayType));
  EXPECT_EQ(table.Used().size(), 1U);
  EXPECT_EQ(table.TypeOn(boxingDay), 8);
  EXPECT_TRUE(table.Give(boxingDay, boxingDay, kNoDayType));
  EXPECT_EQ(table, CalendarTable(kBaseYear));
}

TEST(CalendarTable, AFullTableStoresNothingHalf) {
  CalendarTable table(kBaseYear);
  ASSERT_TRUE(table.Add({2026, 0, 1}, {2027, 4, 26}, 8));
  ASSERT_EQ(table.Used().size(), kCalendarEntries - 1);
  const CalendarTable before = table;
  EXPECT_FALSE(table.Give({2028, 0, 1}, {2028, 0, 2}, 1));
  EXPECT_EQ(table, before);
  EXPECT_TRUE(table.Give({2027, 4, 26}, {2027, 4, 27}, 1));  // one of the two already exists
  EXPECT_EQ(table.Used().size(), kCalendarEntries);
}

}  // namespace
}  // namespace zek
