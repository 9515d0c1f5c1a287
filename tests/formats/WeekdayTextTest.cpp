#include <array>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

#include "formats/CatalogueFields.h"
#include "formats/CatalogueLine.h"
#include "formats/ExportRecords.h"
#include "formats/FormatCases.h"
#include "formats/LineNumbers.h"
#include "formats/WeekdayText.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;

constexpr std::array<const char*, kWeekdayDays> kKeys = {
    "MO", "TU", "WE", "TH", "FR", "SA", "SU", "SD1", "SD2", "SD3", "SD4", "SD5", "SD6", "SD7"};

// A line for each day, with minutes and values as they are: "MO 420-990 21/17".
std::string Dump(const WeekdayTable& table) {
  std::ostringstream out;
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    std::string before = kKeys.at(day);
    for (const WeekdayRow& row : table.days.at(day)) {
      if (!row.Used()) continue;
      out << before << " " << row.start << "-" << row.stop << " " << row.valueOn << "/"
          << row.valueOff;
      before = ",";
    }
    if (before == ",") out << "\n";
  }
  return out.str();
}

std::string Outcome(const test::FormatCase& given) {
  const LineOwner owner = given.Owner();
  const WeekdayReading reading = ReadWeekday(given.lines, owner);
  if (given.Has("number")) {
    const Lines own = SplitWeekday(given.lines, owner).own;
    return test::BuiltText(NumberWeekday(own, given.lines, owner), given.lines);
  }
  std::string text = (SharesBlock(owner) ? "shares its block\n" : "") + Dump(reading.table);
  for (const RefusedLine& refused : reading.refused) {
    text += "refused " + test::TextName(refused.text) + " " + refused.line;
    text += refused.lines > 1 ? " and others: " + std::to_string(refused.lines - 1) + "\n" : "\n";
  }
  if (reading.linesLost > 0) text += "lost " + std::to_string(reading.linesLost) + "\n";
  if (given.Has("read")) return text;
  const auto start = given.Has("from buffer") ? BuildStart::FromBuffer : BuildStart::Afresh;
  return text +
         test::BuiltText(BuildWeekday(reading.table, owner, given.lines, start, '.'), given.lines);
}

TEST(WeekdayText, Cases) { test::CheckFormat("weekday.txt", Outcome); }

TEST(WeekdayText, RefusesWhatNoCatalogueHolds) {
  WeekdayTable table;
  const auto built = [&table](std::int16_t lines, const char* name) {
    table = {};
    for (std::int16_t line = 0; line < lines; ++line) {  // all rows differ
      const auto place = static_cast<std::size_t>(line);
      table.days.at(place % kWeekdayDays).at(place / kWeekdayDays).start = line;
    }
    const LineOwner owner{name, Generation::Zek1, {}};
    return test::BuiltText(BuildWeekday(table, owner, {}, BuildStart::Afresh, '.'), {});
  };
  EXPECT_EQ(built(kMaxCatalogueLines, "T"), "201 lines\n");
  EXPECT_EQ(built(kMaxCatalogueLines + 1, "T"), "error kCatalogueFull 201 SD7 03:15\n");
  EXPECT_EQ(built(99, "PLT7"), "99 lines\n");
  EXPECT_EQ(built(100, "PLT7"), "error kLineNumberBeyondBlock 800 PLT7 799\n");
  EXPECT_EQ(built(100, "PLT"), "100 lines\n");
  EXPECT_EQ(built(101, "PLT"), "error kLineNumberBeyondBlock 1100 PLT 1099\n");
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
