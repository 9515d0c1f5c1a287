#include <array>
#include <gtest/gtest.h>
#include <random>
#include <sstream>
#include <tuple>
#include <vector>

#include "formats/CatalogueLimits.h"
#include "formats/LineNumbers.h"
#include "formats/WeekdayRecords.h"
#include "formats/WeekdayText.h"
#include "lang/TextNumbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;

constexpr std::array<const char*, kWeekdayDays> kKeys = {
    "MO", "TU", "WE", "TH", "FR", "SA", "SU", "SD1", "SD2", "SD3", "SD4", "SD5", "SD6", "SD7"};

// "MO 420-990 21/17; " for each used row, in minutes.
std::string Dump(const WeekdayTable& table) {
  std::ostringstream out;
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (const WeekdayRow& row : table.days[day]) {
      if (!row.Used()) continue;
      out << kKeys[day] << " " << row.start << "-" << row.stop << " " << row.valueOn << "/"
          << row.valueOff << "; ";
    }
  }
  return out.str();
}

BuildError ErrorOf(const WeekdayTable& table, const std::string& name, const Lines& lines = {}) {
  const auto built = BuildWeekday(table, name, lines, BuildStart::Afresh, '.');
  return std::holds_alternative<BuildError>(built) ? std::get<BuildError>(built) : BuildError{};
}

struct Case {
  std::string name;
  Lines lines;
  std::string dump;
  Lines rebuilt;  // the same lines when empty
};

const std::vector<Case> kCases = {
    // Ranges stay ranges, and each row index is grouped on its own.
    {"TSC1",
     {" 1000 !TSC1        !MO..FR       !07:00..16:30             !21       !17",
      " 1001 !TSC1        !MO..TU       !18:00                    !0.5      !.",
      " 1002 !TSC1        !WE           !18:00..24:00             !-3       !.",
      " 1003 !TSC1        !SD1..SD7     !00:00..24:00             !1        !0"},
     "MO 420-990 21/17; MO 1080--1 0.5/999999; TU 420-990 21/17; TU 1080--1 0.5/999999; "
     "WE 420-990 21/17; WE 1080-1440 -3/999999; TH 420-990 21/17; FR 420-990 21/17; "
     "SD1 0-1440 1/0; SD2 0-1440 1/0; SD3 0-1440 1/0; SD4 0-1440 1/0; SD5 0-1440 1/0; "
     "SD6 0-1440 1/0; SD7 0-1440 1/0; ",
     {}},
    {"PLT7",
     {" 701  MO..FR                   !07:00..16:30!21    ",
      " 702  SD1                      !06:30        !0.5   "},
     "MO 420-990 21/999999; TU 420-990 21/999999; WE 420-990 21/999999; TH 420-990 21/999999; "
     "FR 420-990 21/999999; SD1 390--1 0.5/999999; ",
     {" 701  MO..FR                   !07:00..16:30 !21    ",
      " 702  SD1                      !06:30        !0.5   "}},
    // Only this control's lines, in its case; a name beyond 12 characters is compared by its first.
    {"Heating_North_2",
     {"    5 !Heating_Nort!SU           !08:00                    !1        !.",
      "    6 !heating_nort!SU           !09:00                    !1        !.",
      "    7 !TSC1        !SU           !09:00                    !1        !."},
     "SU 480--1 1/999999; ",
     {"    5 !Heating_Nort!SU           !08:00                    !1        !."}},
    // Equal neighbours become one range; weekdays and special days never do.
    {"T",
     {"2000!T!SD1!07:00!1!.", "2001!T!SU!07:00!1!.", "2002!T!SA!07:00!1,0!."},
     "SA 420--1 1/999999; SU 420--1 1/999999; SD1 420--1 1/999999; ",
     {" 2000 !T           !SA..SU       !07:00                    !1        !.",
      " 2001 !T           !SD1          !07:00                    !1        !."}},
    // What is no number reads as 0; times are kept within the day.
    {"T",
     {"1!T!MO!ab:cd!x!y", "2!T!TU!99:99..-9:00!1!"},
     "MO 0--1 0/0; TU 1440-0 1/0; ",
     {"    1 !T           !MO           !00:00                    !0        !0",
      "    2 !T           !TU           !24:00..00:00             !1        !0"}},
    // A root node has no name, and its lines have none.
    {"",
     {"1!!MO!07:00!1!.", "2!T!MO!07:00!1!."},
     "MO 420--1 1/999999; ",
     {"    1 !            !MO           !07:00                    !1        !."}},
};

TEST(WeekdayText, ReadsAndBuildsBack) {
  for (const Case& each : kCases) {
    SCOPED_TRACE(each.name + " " + each.lines.front());
    const WeekdayReading reading = ReadWeekday(each.lines, each.name);
    EXPECT_FALSE(reading.refused);
    EXPECT_EQ(Dump(reading.table), each.dump);
    const auto built = BuildWeekday(reading.table, each.name, each.lines, BuildStart::Afresh, '.');
    EXPECT_EQ(std::get<Lines>(built), each.rebuilt.empty() ? each.lines : each.rebuilt);
  }
}

TEST(WeekdayText, RefusesDayKeys) {
  for (const std::string key : {"", "M", "mo", "XX", "SD", "SD0", "SD8", "SD10", "SD1.5", "SDx",
                                "FR..MO", "SU..SD1", "SD3..SD1", "MO..", "MO..X", "SD1..SD9"}) {
    SCOPED_TRACE(key);
    const Lines lines = {"1!T!MO!07:00!1!.", "2!T!" + key + "!07:00!1!.", "3!U!MO!07:00!1!.",
                         "4!T!TU!07:00!1!."};
    const WeekdayReading reading = ReadWeekday(lines, "T");
    EXPECT_EQ(reading.refused, (RefusedLine{text::kDayUnknown, lines[1]}));
    EXPECT_EQ(reading.linesLost, 2U);
    EXPECT_EQ(Dump(reading.table), "MO 420--1 1/999999; ");
  }
}

TEST(WeekdayText, RefusesLinesWithoutAllTheirFields) {
  for (const auto& [name, line] : std::vector<std::pair<std::string, std::string>>{
           {"T", "1!T!WE"}, {"T", "1!T!WE!07:00!1"}, {"PLT1", " 101  MO!07:00"}}) {
    const WeekdayReading reading = ReadWeekday(Lines{line}, name);
    EXPECT_EQ(reading.refused, (RefusedLine{text::kLineIncomplete, line}));
    EXPECT_EQ(reading.table, WeekdayTable());
  }
}

TEST(WeekdayText, SeventeenthRowIsStoredForNoDay) {
  Lines lines(kWeekdayRows, "1!T!TU!07:00!1!.");
  EXPECT_FALSE(ReadWeekday(lines, "T").refused);
  lines.emplace_back("1!T!MO..WE!08:00!1!.");
  const WeekdayReading reading = ReadWeekday(lines, "T");
  EXPECT_EQ(reading.refused, (RefusedLine{text::kDayFull, lines.back()}));
  EXPECT_EQ(reading.table.UsedRows(0), kWeekdayRows);
  EXPECT_EQ(reading.linesLost, 1U);
}

TEST(WeekdayText, NumbersStart) {
  EXPECT_EQ(LineNumber("1234567"), 123456);
  const std::vector<std::tuple<std::string, Lines, int>> cases = {
      {"TSC1", {}, 1000},
      {"TSC1", {" 7 !U!", " 1205 !TSC1!MO!", " 3 !TSC1!MO!"}, 1205},
      {"TSC1", {"x !TSC1!MO!"}, 1000},
      {"PLT", {" 55   MO"}, 1000},
      {"PLT0", {}, 1000},
      {"plt12", {" 55   MO"}, 1201},
      {"PLT7b", {}, 701},
      {"PLT1E3", {}, 101},
  };
  for (const auto& [name, lines, number] : cases) {
    EXPECT_EQ(ReadWeekday(lines, name).nextLineNumber, number) << name;
  }
}

TEST(WeekdayText, KeepsOtherLinesAndSkipsTheirNumbers) {
  const Lines lines = {"1000 !T!MO!07:00!1!.", "1000 !U!", "1002 !V! *", "1001 !t!"};
  WeekdayTable table;
  for (std::size_t row = 0; row < 3; ++row) table.days[0][row].start = 60;
  const auto built = std::get<Lines>(BuildWeekday(table, "T", lines, BuildStart::FromBuffer, '.'));
  ASSERT_EQ(built.size(), 5U);
  EXPECT_EQ(Lines(built.begin(), built.begin() + 2), (Lines{lines[1], lines[3]}));
  for (int i = 2; i < 5; ++i) EXPECT_EQ(std::stoi(built[static_cast<std::size_t>(i)]), 1000 + i);
}

TEST(WeekdayText, RefusesWhatNoLineHolds) {
  WeekdayTable table;
  table.days[0][0].start = 0;
  EXPECT_EQ(ErrorOf(table, "PLT99").text, 0);
  EXPECT_EQ(ErrorOf(table, "PLT100").text, text::kLineNumberTooLarge);
  EXPECT_EQ(ErrorOf(table, "PLT99999999999").text, text::kLineNumberTooLarge);
  EXPECT_EQ(ErrorOf(table, "T", {"32767 !T!"}).text, 0);
  EXPECT_EQ(ErrorOf(table, "T", {"32768 !T!"}).text, text::kLineNumberTooLarge);
  EXPECT_EQ(ErrorOf(table, "T", {"9e99  !T!"}).values[1], "32767");

  table.days[0][0].valueOn = -1234.567F;
  EXPECT_EQ(ErrorOf(table, "T").text, 0);
  EXPECT_EQ(ErrorOf(table, "PLT1").text, text::kValueTooLong);
  table.days[0][0].valueOn = -1.5E-10F;
  table.days[0][0].valueOff = 1.234567E-10F;  // the last field has no end
  EXPECT_EQ(ErrorOf(table, "T").text, 0);
  table.days[0][0].valueOn = 1.234567E-10F;
  EXPECT_EQ(ErrorOf(table, "T").values,
            (std::array<std::string, 3>{"1.234567E-10", "MO 00:00", "9"}));
}

TEST(WeekdayText, HoldsAtMost201Lines) {
  WeekdayTable table;
  std::size_t lines = 0;
  for (auto& day : table.days) {
    for (WeekdayRow& row : day) {
      if (lines == kMaxCatalogueLines) break;
      row.start = static_cast<std::int16_t>(lines++);  // no two are equal
    }
  }
  const auto built = BuildWeekday(table, "T", {}, BuildStart::Afresh, '.');
  ASSERT_TRUE(std::holds_alternative<Lines>(built));
  EXPECT_EQ(std::get<Lines>(built).size(), kMaxCatalogueLines);
  table.days[13][15].start = 1;
  EXPECT_EQ(ErrorOf(table, "T").text, text::kCatalogueFull);
}

TEST(WeekdayText, RandomTablesComeBack) {
  std::mt19937 random(20);
  const auto upTo = [&random](int n) { return static_cast<int>(random() % (n + 1U)); };
  for (int round = 0; round < 3000; ++round) {
    const bool plt = upTo(1) == 1;
    WeekdayTable table;
    for (auto& day : table.days) {
      const int used = upTo(8);
      for (int row = 0; row < used; ++row) {
        WeekdayRow& cells = day[static_cast<std::size_t>(row)];
        cells.start = static_cast<std::int16_t>(upTo(2) * 720);
        cells.stop = static_cast<std::int16_t>(upTo(1) == 1 ? -1 : upTo(1440));
        cells.valueOn = static_cast<float>(upTo(2) * 1000 - 500) / (plt ? 10.F : 8.F);
        if (!plt && upTo(1) == 1) cells.valueOff = static_cast<float>(upTo(999999)) / 100;
      }
    }
    const std::string name = plt ? "PLT7" : "Åtta åtta8"_w1252.data();
    const char separator = upTo(1) == 1 ? ',' : '.';
    const auto built = BuildWeekday(table, name, {}, BuildStart::Afresh, separator);
    ASSERT_TRUE(std::holds_alternative<Lines>(built)) << round;
    const WeekdayReading reading = ReadWeekday(std::get<Lines>(built), name);
    ASSERT_FALSE(reading.refused) << round;
    ASSERT_EQ(reading.table, table) << round;
  }
}

// Cut and mixed-up lines must do no harm; what could be read must come back from what is built.
TEST(WeekdayText, HostileLines) {
  std::mt19937 random(7);
  const Lines pieces = {"!",   "..", "MO",  "SD",   "SD7", "T",      " ",   "\x01", "1e999",
                        "-1:", "24", ":30", "\xFF", "PLT", "999999", "1.5", "*"};
  Lines lines = {"", std::string(10000, '!'), std::string(10000, '9'),
                 "1!T!MO" + std::string(10000, '.'), std::string("1!T!MO!\0\0:00!1", 14)};
  for (int round = 0; round < 5000; ++round) {
    for (const std::string name : {"T", "PLT3", ""}) {
      const WeekdayTable table = ReadWeekday(lines, name).table;
      const auto built = BuildWeekday(table, name, lines, BuildStart::Afresh, '.');
      if (!std::holds_alternative<Lines>(built)) continue;
      ASSERT_EQ(Dump(ReadWeekday(std::get<Lines>(built), name).table), Dump(table)) << round;
    }
    lines = {random() % 2 == 0 ? "1!T!MO!" : " 301  SD1!"};
    for (auto n = random() % 8; n > 0; --n) lines[0] += pieces[random() % pieces.size()];
  }
}

TEST(WeekdayRecords, WritesRowsWithACell) {
  WeekdayTable table;
  table.days[0][0] = {420, 990, 21.5F, 17};
  table.days[13][2].valueOff = 0;  // no start time: the start value 0 stays an empty cell
  const std::string rest(13, ';');
  EXPECT_EQ(WeekdayRecords(table, {"AHU", "DUC 3", "Heat"}, ','),
            (Lines{"AHU;DUC 3;Heat;Start;07:00;" + rest, ";;;Stopp;16:30;" + rest,
                   std::string(";;;Startvärde;21,5;"_w1252) + rest,
                   std::string(";;;Stoppvärde;17;"_w1252) + rest, "AHU;DUC 3;Heat;Start;;" + rest,
                   ";;;Stopp;;" + rest, std::string(";;;Startvärde;;"_w1252) + rest,
                   std::string(";;;Stoppvärde;"_w1252) + rest + "0;"}));
}

}  // namespace
}  // namespace zek
