#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "plant/PlantLine.h"

namespace zek::sim {
namespace {

const std::string kLong =
    " 1000 !TSC1        !MO..FR       !07:00..16:30             !21       !17";
const std::string kShort = " 1201 MO..FR                   !07:00..16:30 !21    ";
const std::string kDates = " 1000 !24-DEC-26..26-DEC-26                                !SD1";
const std::string kShortDates = " 701  24-DEC-26..26-DEC-26     !SD1";
const std::string kZek1 =
    "  101 !PLT1        !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16";
const std::string kZek2 = "1     24-DEC-2026..26-DEC-2026 !08:00..17:00 !21    !16";

// `line` with what stands from column `first` on overwritten by `text`.
std::string With(std::string line, std::size_t first, const std::string& text) {
  return line.replace(first - 1, text.size(), text);
}

TEST(PlantLine, TakesWhatTheLayoutsAllow) {
  EXPECT_TRUE(IsZek1WeekdayLine(kLong));
  EXPECT_TRUE(IsZek1WeekdayLine(kShort));
  EXPECT_TRUE(IsZek1WeekdayLine(With(kLong, 35, "24:00       ")));
  EXPECT_TRUE(IsZek1WeekdayLine(With(kLong, 61, "-20,5")));
  EXPECT_TRUE(IsZek1WeekdayLine(With(kLong, 71, ". ")));
  EXPECT_TRUE(IsZek1WeekdayLine(With(kLong, 21, "SD1..SD7")));
  EXPECT_TRUE(IsZek2WeekdayLine(kLong, "TSC1"));
  EXPECT_TRUE(IsZek2WeekdayLine(kShort, "PLT12"));
  EXPECT_TRUE(IsZek2WeekdayLine(With(kLong, 8, "ABCDEFGHIJKL"), "ABCDEFGHIJKLMN"));
  EXPECT_TRUE(IsCalendarLine(kDates, Generation::Zek1));
  EXPECT_TRUE(IsCalendarLine(kShortDates, Generation::Zek1));
  EXPECT_TRUE(IsCalendarLine(With(kDates, 8, "29-FEB-2028             "), Generation::Zek2));
  EXPECT_TRUE(IsExceptionLine(kZek1, Generation::Zek1));
  EXPECT_TRUE(IsExceptionLine(With(kZek1, 36, "                 "), Generation::Zek1));
  EXPECT_TRUE(IsExceptionLine(kZek2, Generation::Zek2));
  EXPECT_TRUE(
      IsExceptionLine("2     01-JAN-2027              !06:30..00:00 !.!.", Generation::Zek2));
}

TEST(PlantLine, RefusesEverythingElse) {
  const std::vector<std::string> weekday = {
      "",
      "1000",
      kLong.substr(0, 70),          // no stop value
      " " + kLong,                  // every column one off
      With(kLong, 1, "    0"),      // number
      With(kLong, 1, "10 00"),      // number
      With(kLong, 8, "    "),       // no name
      With(kLong, 8, "PLT1"),       // a name that has the other layout
      With(kLong, 21, "XX..FR"),    // days
      With(kLong, 21, "FR..MO"),    // days
      With(kLong, 21, "FR..SD1"),   // days
      With(kLong, 21, "      "),    // days
      With(kLong, 35, "24:01"),     // times
      With(kLong, 35, "07:60"),     // times
      With(kLong, 35, "7:000"),     // times
      With(kLong, 40, "--"),        // times
      With(kLong, 60, " "),         // columns
      With(kLong, 61, "abc"),       // value
      With(kShort, 46, " "),        // columns
      With(kShort, 47, "x"),        // value
      With(kShort, 7, "SD8     "),  // days
  };
  for (const std::string& line : weekday) EXPECT_FALSE(IsZek1WeekdayLine(line)) << line;
  EXPECT_FALSE(IsZek2WeekdayLine(kLong, "TSC2"));
  EXPECT_FALSE(IsZek2WeekdayLine(kLong, "PLT1"));
  EXPECT_FALSE(IsZek2WeekdayLine(kShort, "TSC1"));

  const std::vector<std::string> dates = {
      With(kDates, 11, "DEZ"),  // month
      With(kDates, 8, "32"),    // day
      With(kDates, 8, "29-FEB-27             "),
      With(kDates, 11, "-DE"),
      With(kDates, 60, " "),    // columns
      With(kDates, 61, "SD9"),  // day type
      With(kShortDates, 32, " "),
      With(kDates, 1, "     "),  // number
  };
  for (const std::string& line : dates) {
    EXPECT_FALSE(IsCalendarLine(line, Generation::Zek1)) << line;
  }
  EXPECT_FALSE(IsCalendarLine(kDates, Generation::Zek2));  // two digits where four belong

  const std::vector<std::string> exceptions = {With(kZek1, 24, "FOO"), With(kZek1, 30, " "),
                                               With(kZek1, 36, "-"),   With(kZek1, 60, " "),
                                               With(kZek1, 61, "x"),   kZek1.substr(0, 60)};
  for (const std::string& line : exceptions) {
    EXPECT_FALSE(IsExceptionLine(line, Generation::Zek1)) << line;
  }
  EXPECT_FALSE(IsExceptionLine(kZek2, Generation::Zek1));
  EXPECT_FALSE(IsExceptionLine(kZek1, Generation::Zek2));
  EXPECT_FALSE(IsExceptionLine(With(kZek2, 33, "25:00"), Generation::Zek2));
}

TEST(PlantLine, PlainLinesCannotBreakTheProtocol) {
  EXPECT_TRUE(IsPlainLine("\xE5\xE4\xF6"));
  EXPECT_TRUE(IsPlainLine(std::string(kLongestLine, 'x')));
  EXPECT_FALSE(IsPlainLine(std::string(kLongestLine + 1, 'x')));
  for (const char* line : {"a\xFFz", "a\x02z", "a\tz"}) EXPECT_FALSE(IsPlainLine(line));
}

}  // namespace
}  // namespace zek::sim
