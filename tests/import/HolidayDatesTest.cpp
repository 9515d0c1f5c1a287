#include <gtest/gtest.h>

#include "formats/CatalogueFields.h"
#include "import/HolidayDates.h"

namespace zek {
namespace {

TEST(HolidayDates, EachGroupHasItsTypeAndTheControllerItsYears) {
  const ImportWindow window{
      {Generation::Zek2, 20, 2026}, 0, ImportKey({2026, 11, 31}), 2026, false};
  const ImportedDates eves = HolidayDates(2026, 2027, {kNoDayType, 9, 10}, window);
  std::string dates;
  for (const ImportedDate& each : eves.dates) {
    dates += IsoDate(each.date.year, each.date.month + 1, each.date.day) + " " +
             std::to_string(each.type) + " " + each.name + "\n";
  }
  EXPECT_EQ(dates,
            "2026-04-04 10 P\xE5skafton\n2026-05-23 10 Pingstafton\n2026-06-19 9 Midsommarafton\n"
            "2026-12-24 9 Julafton\n2026-12-31 9 Ny\xE5rsafton\n");
  EXPECT_EQ(eves.skipped.size(), 5U);
  EXPECT_EQ(HolidayDates(2026, 2026, {8, kNoDayType, kNoDayType}, window).dates.size(), 13U);
}

}  // namespace
}  // namespace zek
