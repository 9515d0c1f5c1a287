#include <gtest/gtest.h>

#include "forecast/EditedEntries.h"

namespace zek {
namespace {

WeekdayRow At(std::int16_t start) { return {.start = start, .valueOn = 1}; }

TEST(EditedEntries, EachNumberTellsItsFirstCell) {
  WeekdayTable weekdays;
  for (std::size_t day = 1; day < 4; ++day) weekdays.days.at(day).at(2) = At(60);
  weekdays.days.at(7).at(2) = At(60);
  const WeekdayLineNumbers numbers = OwnNumbers(weekdays);
  for (const auto& [day, first] : {std::pair(1, 1), {3, 1}, {7, 7}}) {
    const WeekdayCell cell = CellOfNumber(numbers.at(static_cast<std::size_t>(day)).at(2));
    EXPECT_EQ(cell.day, static_cast<std::size_t>(first));
    EXPECT_EQ(cell.row, 2U);
  }
  CalendarTable calendar(CalendarYears::kFirst);
  calendar.Give({2026, 11, 23}, {2026, 11, 25}, 8);
  calendar.Give({2026, 11, 26}, {2026, 11, 26}, 9);
  const std::vector<DatedType> dates = OwnNumbers(calendar);
  ASSERT_EQ(dates.size(), 4U);
  EXPECT_EQ(dates[2].line, dates[0].line);
  EXPECT_NE(dates[3].line, dates[0].line);
  EXPECT_EQ(DateOfNumber(dates[2].line), dates[0].day);
  EXPECT_EQ(DateOfNumber(dates[3].line), dates[3].day);
}

TEST(EditedEntries, WhatStaysAsItWasReadKeepsItsLine) {
  Schedule schedule;
  schedule.weekdays.days.at(0).at(0) = At(60);
  schedule.weekdayLines.at(0).at(0) = 1000;
  schedule.exceptions = {{{.used = true, .start = 100, .valueOn = 1}, 7},
                         {{.used = true, .start = 300, .valueOn = 1}, 8}};
  WeekdayTable weekdays = schedule.weekdays;
  weekdays.days.at(1).at(0) = At(90);
  PutWeekdays(schedule, weekdays);
  EXPECT_EQ(schedule.weekdayLines.at(0).at(0), 1000);
  EXPECT_EQ(schedule.weekdayLines.at(1).at(0), NumberOfCell({1, 0}));
  ExceptionTable exceptions;
  exceptions.rows[0] = schedule.exceptions[1].row;
  exceptions.rows[3] = schedule.exceptions[0].row;
  PutExceptions(schedule, exceptions);
  EXPECT_EQ(schedule.exceptions[0].number, 7) << "the order of the lines";
  exceptions.rows[1] = {.used = true, .start = 200, .valueOn = 1};
  PutExceptions(schedule, exceptions);
  ASSERT_EQ(schedule.exceptions.size(), 3U);
  EXPECT_EQ(schedule.exceptions[0].number, 8);
  EXPECT_EQ(schedule.exceptions[1].number, NumberOfException(1));
  EXPECT_EQ(ExceptionOfNumber(schedule.exceptions[1].number), 1U);
  EXPECT_EQ(schedule.exceptions[2].number, 7);
}

}  // namespace
}  // namespace zek
