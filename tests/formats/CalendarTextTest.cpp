#include <array>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "formats/CalendarRecords.h"
#include "formats/CalendarText.h"
#include "formats/CatalogueLimits.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;

constexpr CalendarYears kZek1{Generation::Zek1, 93, 2030};
constexpr CalendarYears kZek2{Generation::Zek2, 20, 2099};
constexpr int kBaseYear = 2026;

// "2026-12-24 SD1; " for each entry, in the order of the table.
std::string Dump(const CalendarTable& table) {
  std::string dump;
  for (const std::string& record : CalendarRecords(table, {})) {
    dump += record.substr(2, 10) + " " + record.substr(13) + "; ";
  }
  return dump;
}

Lines Build(const CalendarTable& table, const std::string& name, Generation generation) {
  const BuiltLines built = BuildCalendar(table, name, generation);
  const Lines* const lines = std::get_if<Lines>(&built);
  return lines == nullptr ? Lines{"error"} : *lines;
}

struct Case {
  CalendarYears years;
  std::string name;
  Lines lines;
  std::string dump;
  Lines rebuilt;  // the same lines when empty
};

const std::vector<Case> kCases = {
    {kZek1,
     "TSC1",
     {" 1000 !24-DEC-26..26-DEC-26                                !SD1",
      " 1001 !27-DEC-26                                           !SU"},
     "2026-12-24 SD1; 2026-12-25 SD1; 2026-12-26 SD1; 2026-12-27 SU; ",
     {}},
    {kZek2,
     "PLT7",
     {" 701  24-DEC-2026..26-DEC-2026 !SD1", " 702  28-DEC-2026              !MO"},
     "2026-12-24 SD1; 2026-12-25 SD1; 2026-12-26 SD1; 2026-12-28 MO; ",
     {}},
    // Over the ends of months and years; every fourth year has a leap day.
    {kZek1,
     "T",
     {"1!28-FEB-04..01-MAR-04!SD1", "2!28-FEB-03..01-MAR-03!SD2", "3!30-DEC-02..02-JAN-03!SD7"},
     "2004-02-28 SD1; 2004-02-29 SD1; 2004-03-01 SD1; 2003-02-28 SD2; 2003-03-01 SD2; "
     "2002-12-30 SD7; 2002-12-31 SD7; 2003-01-01 SD7; 2003-01-02 SD7; ",
     {" 1000 !30-DEC-02..02-JAN-03                                !SD7",
      " 1001 !28-FEB-03..01-MAR-03                                !SD2",
      " 1002 !28-FEB-04..01-MAR-04                                !SD1"}},
    // A date that is there twice keeps both entries, the first one in front.
    {kZek2,
     "T",
     {"1!02-MAY-2027!SD2", "2!01-MAY-2027..03-MAY-2027!SD1", "3!02-MAY-2027!SD2"},
     "2027-05-02 SD2; 2027-05-01 SD1; 2027-05-02 SD1; 2027-05-03 SD1; 2027-05-02 SD2; ",
     {" 1000 !01-MAY-2027                                         !SD1",
      " 1001 !02-MAY-2027                                         !SD2",
      " 1002 !02-MAY-2027                                         !SD1",
      " 1003 !02-MAY-2027                                         !SD2",
      " 1004 !03-MAY-2027                                         !SD1"}},
    // Both layouts meet in one calendar; the control's own name decides how it is written.
    {kZek1,
     "plt0",
     {" 1000 !05-JAN-26   !TU", " 301  06-JAN-26..07-JAN-26!WE ", "      07-FEB-26!SD3x"},
     "2026-01-05 TU; 2026-01-06 WE; 2026-01-07 WE; 2026-02-07 SD3; ",
     {" 1000 05-JAN-26                !TU", " 1001 06-JAN-26..07-JAN-26     !WE",
      " 1002 07-FEB-26                !SD3"}},
    // A root node has no name. Blanks around the fields don't count, the year may have one digit.
    {kZek1,
     "",
     {"7 !  01-JAN-26 .. 02-JAN-26 !  SD1", "8!3 -JAN-5!FR"},
     "2026-01-01 SD1; 2026-01-02 SD1; 2005-01-03 FR; ",
     {" 1000 !03-JAN-05                                           !FR",
      " 1001 !01-JAN-26..02-JAN-26                                !SD1"}},
};

TEST(CalendarText, ReadsAndBuildsBack) {
  for (const Case& each : kCases) {
    SCOPED_TRACE(each.name + " " + each.lines.front());
    const CalendarReading reading = ReadCalendar(each.lines, each.years, kBaseYear);
    EXPECT_EQ(Dump(reading.table), each.dump);
    EXPECT_TRUE(reading.refused.empty());
    EXPECT_EQ(Build(reading.table, each.name, each.years.generation),
              each.rebuilt.empty() ? each.lines : each.rebuilt);
  }
}

TEST(CalendarText, Years) {
  constexpr CalendarYears shortest{Generation::Zek1, 20, 2030};
  constexpr CalendarYears ofFour{Generation::Zek2, 20, 2030};
  // The year in the line and what it means, 0 when it is refused.
  const std::vector<std::tuple<CalendarYears, std::string, int>> cases = {
      {shortest, "00", 2000}, {shortest, "20", 2020}, {shortest, "21", 0},
      {shortest, "93", 0},    {shortest, "94", 1994}, {shortest, "99", 1999},
      {shortest, "100", 0},   {shortest, "2002", 0},  {shortest, "", 0},
      {shortest, "-1", 0},    {shortest, "1.5", 0},   {shortest, "1e300", 0},
      {shortest, "x", 0},     {kZek1, "21", 2021},    {kZek1, "93", 2093},
      {kZek1, "94", 1994},    {ofFour, "1993", 0},    {ofFour, "1994", 1994},
      {ofFour, "2030", 2030}, {ofFour, "2031", 0},    {ofFour, "26", 0},
      {kZek2, "2099", 2099},  {kZek2, "2100", 0},     {ofFour, "9999999999", 0},
  };
  for (const auto& [years, text, year] : cases) {
    const CalendarReading reading = ReadCalendar(Lines{"1!15-JUN-" + text + "!SD1"}, years, 2026);
    EXPECT_EQ(Dump(reading.table), year == 0 ? "" : std::to_string(year) + "-06-15 SD1; ") << text;
    EXPECT_EQ(reading.refused.empty(), year != 0) << text;
  }
}

TEST(CalendarText, RefusesDatesAndGoesOn) {
  for (const std::string dates :
       {"", "31-JUN-26", "29-FEB-27", "00-JAN-26", "32-JAN-26", "01-jan-26", "01-MAJ-26", "01-JA",
        "26-DEC-26..24-DEC-26", "24-DEC-26..32-DEC-26", "24-DEC-26..", "..24-DEC-26",
        "24-DEC-26..24-DEC-25", "31-DEC-93..01-JAN-94", " 1-JAN-26", "1.5-JAN-26"}) {
    SCOPED_TRACE(dates);
    const Lines lines = {" 1000 !01-JAN-26!SD1", " 77   !" + dates + "!SD1",
                         " 78   " + (dates.empty() ? "x" : dates) + "!SD1", " 1001 !02-JAN-26!SD1"};
    const CalendarReading reading = ReadCalendar(lines, kZek1, kBaseYear);
    EXPECT_EQ(reading.refused, (std::vector<RefusedDates>{{text::kDatesWrong, "77", lines[1]},
                                                          {text::kDatesWrong, "78", lines[2]}}));
    EXPECT_EQ(reading.linesLost, 2U);
    EXPECT_EQ(Dump(reading.table), "2026-01-01 SD1; 2026-01-02 SD1; ");
  }
}

TEST(CalendarText, RefusesDayTypesAndStars) {
  const Lines lines = {"1!01-JAN-26!SD8",     "2!*!SD1",     "3!01-JAN-26!",  "4!02-JAN-26!sd1",
                       " 5    03*JAN-26!SD1", "6!01-JAN-26", "7!01-JAN-26!M", "8!04-JAN-26!*"};
  const CalendarReading reading = ReadCalendar(lines, kZek1, kBaseYear);
  std::vector<std::string> numbers;
  for (const RefusedDates& refused : reading.refused) {
    EXPECT_EQ(refused.text, text::kDayTypeUnknown);
    numbers.push_back(refused.number);
  }
  EXPECT_EQ(numbers, (Lines{"1", "3", "4", "6", "7", "8"}));
  EXPECT_EQ(reading.linesLost, lines.size());
  EXPECT_TRUE(reading.table.Used().empty());
}

TEST(CalendarText, HoldsAtMost512Dates) {
  Lines lines = {"1!01-JAN-26..31-DEC-26!SD1", "2!01-JAN-27..27-MAY-27!SD2"};
  const CalendarReading whole = ReadCalendar(lines, kZek1, kBaseYear);
  EXPECT_EQ(whole.table.Used().size(), kCalendarEntries);
  EXPECT_TRUE(whole.refused.empty());

  lines[1] = "2!01-JAN-27..28-MAY-27!SD2";
  lines.insert(lines.end(), {"3!01-JAN-28!SD3", "4!x!SD3", "5!02-JAN-28!SD3"});
  const CalendarReading cut = ReadCalendar(lines, kZek1, kBaseYear);
  EXPECT_EQ(cut.table, whole.table);
  EXPECT_EQ(cut.refused, (std::vector<RefusedDates>{{text::kCalendarCut, "2", lines[1]},
                                                    {text::kDatesWrong, "4", lines[3]}}));
  EXPECT_EQ(cut.linesLost, 4U);
}

TEST(CalendarText, RefusesWhatNoLineHolds) {
  const auto error = [](const CalendarTable& table, const std::string& name) {
    const BuiltLines built = BuildCalendar(table, name, Generation::Zek1);
    return std::holds_alternative<BuildError>(built) ? std::get<BuildError>(built) : BuildError{};
  };
  CalendarTable table(kBaseYear);  // no day has the type of the day before
  CalendarDate date{kBaseYear, 0, 1};
  const auto fill = [&](std::size_t entries) {
    for (; table.Used().size() < entries; date = NextDay(date))
      ASSERT_TRUE(table.Add(date, date, static_cast<std::int16_t>(1 + table.Used().size() % 14)));
  };
  fill(99);
  EXPECT_EQ(error(table, "PLT99").text, 0);
  EXPECT_EQ(error(table, "PLT100").text, text::kLineNumberTooLarge);
  fill(100);
  EXPECT_EQ(error(table, "PLT99").values[0], "10000");
  fill(kMaxCatalogueLines);
  EXPECT_EQ(Build(table, "T", Generation::Zek1).back().substr(0, 8), " 1200 !2");
  fill(kMaxCatalogueLines + 1);
  EXPECT_EQ(error(table, "T").text, text::kCatalogueFull);
  EXPECT_EQ(error(table, "T").values, (std::array<std::string, 3>{"201", "21-JUL-26", {}}));
}

TEST(CalendarText, RandomTablesComeBack) {
  std::mt19937 random(512);
  const auto upTo = [&random](int n) { return static_cast<int>(random() % (n + 1U)); };
  for (int round = 0; round < 2000; ++round) {
    const CalendarYears& years = upTo(1) == 1 ? kZek1 : kZek2;
    CalendarTable table(kBaseYear);
    for (int runs = upTo(60); runs > 0; --runs) {
      const CalendarDate first{1994 + upTo(98), upTo(11), 1 + upTo(27)};
      CalendarDate last = first;
      for (int days = upTo(1) * upTo(8); days > 0; --days) last = NextDay(last);
      if (!years.Has(last.year)) continue;
      ASSERT_TRUE(table.Give(first, last, static_cast<std::int16_t>(1 + upTo(13))));
    }
    const Lines lines = Build(table, upTo(1) == 1 ? "PLT3" : "T", years.generation);
    const CalendarReading reading = ReadCalendar(lines, years, kBaseYear);
    ASSERT_TRUE(reading.refused.empty()) << round;
    table.Sort();
    ASSERT_EQ(reading.table, table) << round;
  }
}

// Cut and mixed-up lines must do no harm; what could be read must come back from what is built.
TEST(CalendarText, HostileLines) {
  std::mt19937 random(7);
  const Lines pieces = {"!",    "..",  "-",   "24-DEC-26", "31-FEB-26", "01-JAN-27", " ",
                        "\x01", "1e9", "SD1", "MO",        "\xFF",      "00-JAN-00", "*"};
  Lines lines = {"", std::string(10000, '!'), std::string(10000, '9'),
                 "1!24-DEC-26" + std::string(10000, '.'), std::string("1!24-D\0\0!SD1", 12)};
  for (int round = 0; round < 5000; ++round) {
    CalendarReading reading = ReadCalendar(lines, kZek1, kBaseYear);
    const BuiltLines built = BuildCalendar(reading.table, "T", Generation::Zek1);
    ASSERT_TRUE(std::holds_alternative<Lines>(built)) << round;
    reading.table.Sort();
    const auto again = ReadCalendar(std::get<Lines>(built), kZek1, kBaseYear);
    ASSERT_EQ(again.table, reading.table) << round;
    lines = {random() % 2 == 0 ? "1!24-DEC-26" : " 301  "};
    for (auto n = random() % 8; n > 0; --n) lines[0] += pieces[random() % pieces.size()];
  }
}

}  // namespace
}  // namespace zek
