#include <gtest/gtest.h>

#include "formats/CatalogueFields.h"
#include "import/HolidayDates.h"
#include "import/ImportFile.h"
#include "import/YearCopy.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

std::string Text(const CalendarDate& date) { return IsoDate(date.year, date.month + 1, date.day); }

TEST(HolidayDates, EachGroupHasItsTypeAndTheControllerItsYears) {
  const ImportWindow window{
      {Generation::Zek2, 20, 2026}, 0, ImportKey({2026, 11, 31}), 2026, false};
  const ImportedDates eves = HolidayDates(2026, 2027, {kNoDayType, 9, 10}, window);
  std::string dates;
  for (const ImportedDate& each : eves.dates) {
    dates += Text(each.date) + " " + std::to_string(each.type) + " " + each.name + "\n";
  }
  EXPECT_EQ(dates,
            "2026-04-04 10 P\xE5skafton\n2026-05-23 10 Pingstafton\n2026-06-19 9 Midsommarafton\n"
            "2026-12-24 9 Julafton\n2026-12-31 9 Ny\xE5rsafton\n");
  EXPECT_EQ(eves.skipped.size(), 5U);
  EXPECT_EQ(HolidayDates(2026, 2026, {8, kNoDayType, kNoDayType}, window).dates.size(), 13U);
}

struct Copied {
  YearCopy copy = YearCopy::SameDates;
  int to = 0;
  CalendarDate from;
  const char* dates = "";
};

// Easter is 5 April 2026, 28 March 2027, 16 April 2028; 1 May 2008 is Ascension Day, too.
TEST(YearCopy, EachDateGoesToTheOtherYear) {
  using enum YearCopy;
  for (const Copied& each : std::initializer_list<Copied>{
           {Holidays, 2027, {2026, 3, 2}, "2027-03-25"},   // Maundy Thursday
           {Holidays, 2027, {2026, 3, 5}, "2027-03-28"},   // Easter
           {Holidays, 2028, {2026, 4, 15}, "2028-05-26"},  // the day after Ascension Day
           {Holidays, 2027, {2026, 4, 23}, "2027-05-15"},  // the eve of Pentecost
           {Holidays, 2027, {2026, 5, 19}, "2027-06-25"},  // Midsummer Eve
           {Holidays, 2027, {2026, 9, 30}, "2027-11-05"},  // the eve of All Saints' Day
           {Holidays, 2027, {2026, 11, 24}, "2027-12-24"},
           {Holidays, 2027, {2026, 3, 7}, "2027-04-07"},
           {Holidays, 2009, {2008, 4, 1}, "2009-05-01 2009-05-21"},
           {Holidays, 2026, {2008, 1, 29}, "not 2008-02-29"},
           {SameDates, 2027, {2026, 3, 5}, "2027-04-05"},
           {SameDates, 2032, {2028, 1, 29}, "2032-02-29"},
           {SameDates, 2100, {2026, 3, 5}, "not 2026-04-05"}}) {
    CalendarTable table(2026);
    ASSERT_TRUE(table.Add(each.from, each.from, 9));
    ASSERT_TRUE(table.Add(each.from, each.from, 8));  // does not count
    const ImportWindow window{{Generation::Zek2, 20, 2099}, 0, ImportKey({2099, 11, 31}), 0, false};
    const ImportedDates copied = YearDates(table, each.from.year, each.to, each.copy, window);
    std::string dates;
    for (const ImportedDate& date : copied.dates) {
      EXPECT_EQ(date.type, 9);
      EXPECT_TRUE(date.name.starts_with(Text(each.from)));
      dates += (dates.empty() ? "" : " ") + Text(date.date);
    }
    for (const SkippedItem& item : copied.skipped) dates += "not " + item.name;
    EXPECT_EQ(dates, each.dates) << Text(each.from);
    EXPECT_TRUE(YearDates(table, each.to, each.from.year, each.copy, window).dates.empty());
  }
}

// Each look at the clock takes 10 ms.
TEST(ImportFile, AllRepetitionsOfAFileTogetherHaveTwoSeconds) {
  const ImportWindow window{{Generation::Zek2, 20, 2030}, 0, ImportKey({2030, 11, 31}), 2030, true};
  std::string file = "BEGIN:VCALENDAR\r\n";
  for (const int count : {120, 60, 60})
    file += "BEGIN:VEVENT\r\nSUMMARY:x\r\nDTSTART;VALUE=DATE:20260101\r\nRRULE:FREQ=DAILY;COUNT=" +
            std::to_string(count) + "\r\nEND:VEVENT\r\n";
  std::chrono::milliseconds now{1000000};
  const ImportedDates read = ReadImportFile(
      file + "END:VCALENDAR\r\n", window, [&now] { return now += std::chrono::milliseconds(10); });
  EXPECT_EQ(read.dates.size(), 180U);
  ASSERT_EQ(read.skipped.size(), 1U);
  EXPECT_EQ(read.skipped[0].reason.text, text::kImportTooSlow);
}

}  // namespace
}  // namespace zek
