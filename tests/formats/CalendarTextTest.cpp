#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "formats/CalendarText.h"
#include "formats/CatalogueLine.h"
#include "formats/ExportRecords.h"
#include "formats/FormatCases.h"

namespace zek {
namespace {

constexpr int kBaseYear = 2026;

// "2026-12-24 SD1" for each entry, in the order of the table.
std::string Dump(const CalendarTable& table) {
  std::string dump;
  for (const std::string& record : CalendarRecords(table, {}))
    dump += record.substr(2, 10) + " " + record.substr(13) + "\n";
  return dump;
}

std::string Outcome(const test::FormatCase& given) {
  const auto generation = given.Has("ZEK2") ? Generation::Zek2 : Generation::Zek1;
  const CalendarYears years{generation, given.Has("ZEK2") ? 20 : given.Number("ZEK1"),
                            given.Has("ZEK2") ? given.Number("ZEK2") : 2030};
  const CalendarReading reading = ReadCalendar(given.lines, years, kBaseYear);
  const std::size_t entries = reading.table.Used().size();
  std::string text = entries > 20 ? std::to_string(entries) + " entries\n" : Dump(reading.table);
  for (const RefusedDates& refused : reading.refused)
    text += "refused " + test::TextName(refused.text) + " " + refused.number + "\n";
  if (reading.linesLost > 0) text += "lost " + std::to_string(reading.linesLost) + "\n";
  if (given.Has("read")) return text;
  return text +
         test::BuiltText(
             BuildCalendar(reading.table,
                           reading.layout.value_or(EmptyCalendarLayout(given.Name())), generation),
             given.lines);
}

TEST(CalendarText, Cases) { test::CheckFormat("calendar.txt", Outcome); }

TEST(CalendarText, RefusesWhatNoLineHolds) {
  CalendarTable table(kBaseYear);  // each day has another type than the day before
  CalendarDate date{kBaseYear, 0, 1};
  const auto built = [&](std::size_t entries, const std::string& name) {
    for (; table.Used().size() < entries; date = NextDay(date))
      table.Add(date, date, static_cast<std::int16_t>(1 + table.Used().size() % 14));
    return test::BuiltText(BuildCalendar(table, EmptyCalendarLayout(name), Generation::Zek1), {});
  };
  EXPECT_EQ(built(99, "PLT99"), "99 lines\n");
  EXPECT_EQ(built(99, "PLT100"), "error kLineNumberTooLarge 10001 9999\n");
  EXPECT_EQ(built(100, "PLT99"), "error kLineNumberTooLarge 10000 9999\n");
  EXPECT_EQ(built(kMaxCatalogueLines, "T"), "201 lines\n");
  EXPECT_EQ(built(kMaxCatalogueLines + 1, "T"), "error kCatalogueFull 201 21-JUL-26\n");
}

}  // namespace
}  // namespace zek
