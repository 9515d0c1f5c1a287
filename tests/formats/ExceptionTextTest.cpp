#include <gtest/gtest.h>
#include <sstream>
#include <tuple>
#include <vector>

#include "formats/ExceptionCells.h"
#include "formats/ExceptionText.h"
#include "formats/ExportRecords.h"
#include "formats/FormatCases.h"
#include "support/TestSession.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;
constexpr Generation kZek1 = Generation::Zek1;
constexpr Generation kZek2 = Generation::Zek2;

// "start..stop on/off" for each used row; the texts of the boxes and the values as they are.
std::string Dump(const ExceptionTable& table) {
  std::ostringstream out;
  for (const OvcRow& row : table.rows) {
    if (!row.used) continue;
    const auto& texts = TextsOf(row, '.').texts;
    out << texts[0] << ' ' << texts[1] << ".." << texts[3] << ' ' << texts[4] << ' ' << row.valueOn
        << '/' << row.valueOff << "\n";
  }
  return out.str();
}

ExceptionTable OneRow() {
  ExceptionTable table;
  table.rows[5] = {true, DateMoment(2026, 12, 24), 0, 1, kNoValue};
  return table;
}

std::string Outcome(const test::FormatCase& given) {
  const LineOwner owner = given.Owner();
  ExceptionOptions options{1, static_cast<std::int16_t>(given.Has("ZEK2") ? 0 : 100)};
  if (given.Has("first")) options.OVCStartRow = static_cast<std::int16_t>(given.Number("first"));
  if (given.Has("times")) options.OVCMultiplyPLT = static_cast<std::int16_t>(given.Number("times"));
  const auto built = [&](const ExceptionTable& table) {
    return test::BuiltText(BuildExceptions(table, owner, given.lines, options, '.'), given.lines);
  };
  if (given.Has("number")) {
    const Lines own = SplitExceptions(given.lines, owner).own;
    return test::BuiltText(NumberExceptions(own, given.lines, owner, options), given.lines);
  }
  if (given.Has("another")) return built(OneRow());
  const ExceptionReading reading = ReadExceptions(given.lines, owner);
  std::string text = Dump(reading.table);
  for (const RefusedException& refused : reading.refused)
    text += "refused " + test::TextName(refused.text) + " " + refused.line + "\n";
  if (reading.linesLost > 0) text += "lost " + std::to_string(reading.linesLost) + "\n";
  return given.Has("read") ? text : text + built(reading.table);
}

TEST(ExceptionText, Cases) { test::CheckFormat("exceptions.txt", Outcome); }

TEST(ExceptionText, RefusesYearsThatNoLineHolds) {
  const auto error = [](const ExceptionTable& table, Generation generation) {
    return test::BuiltText(BuildExceptions(table, {"T", generation, {}}, {}, {1, 100}, '.'), {});
  };
  ExceptionTable table;
  // Start year, stop year (-1: no date), and whether each generation has it.
  const std::vector<std::tuple<int, int, bool, bool>> years = {
      {1990, 2089, true, true},   {1989, -1, false, true},   {2090, -1, false, true},
      {2000, 2090, false, true},  {1900, 9999, false, true}, {1899, -1, false, false},
      {2000, 1899, false, false},
  };
  for (const auto& [start, stop, fitsOld, fitsModern] : years) {
    table = {};
    table.rows[0] = {true, DateMoment(start, 12, 31), stop < 0 ? 90 : DateMoment(stop, 1, 31)};
    EXPECT_EQ(error(table, kZek1).starts_with("error kYearUnfit"), !fitsOld) << start;
    EXPECT_EQ(error(table, kZek2).starts_with("error kYearUnfit"), !fitsModern) << start;
  }
  table.rows[0].start = DateMoment(9999, 12, 31) + kMinutesOfDay;
  EXPECT_TRUE(error(table, kZek2).starts_with("error kYearUnfit 10000-01-01"));
}

TEST(ExceptionText, DatesOfAnySize) {
  EXPECT_EQ(DateMoment(1899, 12, 30), 0);
  EXPECT_EQ(DateText(DateMoment(29, 2, 29)), "2029-03-01");
  EXPECT_EQ(DateText(DateMoment(30, 2, 29)), "1930-03-01");
  EXPECT_EQ(DateText(DateMoment(123, 4, 5)), "0123-04-05");
  for (const double number : {-1e308, -1.0, 1e9, 1e308}) {
    const Moment moment = DateMoment(number, number, number) + TimeMoment(number, number);
    EXPECT_GE(TimeOfDay(moment), 0) << number;
    EXPECT_LT(TimeOfDay(moment), kMinutesOfDay) << number;
    EXPECT_FALSE(DateText(moment).empty()) << number;
  }
}

TEST(ExceptionOptions, AreThoseOfTheGeneration) {
  test::TestSession session;
  const auto numbers = session.proc.Numbers();
  const auto check = [&](Generation generation, int startRow, int multiplyPlt) {
    const auto options = ReadExceptionOptions(numbers, generation);
    ASSERT_TRUE(options);
    EXPECT_EQ(options->OVCStartRow, startRow);
    EXPECT_EQ(options->OVCMultiplyPLT, multiplyPlt);
  };
  check(kZek1, 1, 100);
  check(kZek2, 1, 0);
  ASSERT_FALSE(session.profile.WriteIni("SaveOptionsZEK1", "OVCStartRow", "5"));
  ASSERT_FALSE(session.profile.WriteIni("SaveOptionsZEK2", "OVCMultiplyPLT", "50.5"));
  check(kZek1, 5, 100);
  check(kZek2, 1, 50);
  ASSERT_FALSE(session.profile.WriteIni("SaveOptionsZEK2", "OVCMultiplyPLT", "40000"));
  EXPECT_TRUE(session.prompts.shown.empty());
  EXPECT_FALSE(ReadExceptionOptions(numbers, kZek2));
  EXPECT_EQ(session.prompts.shown.size(), 1U);
}

TEST(ExceptionRecords, WritesUsedRows) {
  ExceptionTable table;
  table.rows[1] = {true, DateMoment(2026, 12, 24) + 480, DateMoment(2026, 12, 26) + 1020, 21.5F,
                   16};
  table.rows[3] = {true, DateMoment(2027, 1, 1), 1440, kNoValue, kNoValue};
  EXPECT_EQ(ExceptionRecords(table, {"AHU", "DUC 3", "Heat"}, ','),
            (Lines{"AHU;DUC 3;Heat;2026-12-24;08:00;21,5;2026-12-26;17:00;16",
                   "AHU;DUC 3;Heat;2027-01-01;00:00;;;24:00;"}));
}

}  // namespace
}  // namespace zek
