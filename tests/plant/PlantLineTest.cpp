#include <gtest/gtest.h>
#include <string>

#include "plant/PlantLine.h"
#include "support/CaseFile.h"
#include "text/Fields.h"

namespace zek::sim {
namespace {

// Head "weekday ZEK2 TSC1": whether a controller accepts each line, by its layout.
TEST(PlantLine, Cases) {
  test::CheckCases("plant-lines.txt", [](const test::TextCase& given) {
    const bool modern = GetField(given.head, 1, " ") == "ZEK2";
    const auto generation = modern ? Generation::Zek2 : Generation::Zek1;
    const std::string_view kind = GetField(given.head, 0, " ");
    std::string outcome;
    for (const std::string& line : given.given) {
      const bool taken = kind == "plain"       ? IsPlainLine(line)
                         : kind == "calendar"  ? IsCalendarLine(line, generation)
                         : kind == "exception" ? IsExceptionLine(line, generation)
                         : modern ? IsZek2WeekdayLine(line, GetField(given.head, 2, " "))
                                  : IsZek1WeekdayLine(line);
      outcome += taken ? "taken\n" : "refused\n";
    }
    return outcome;
  });
}

TEST(PlantLine, Limits) {
  EXPECT_TRUE(IsPlainLine(std::string(kLongestLine, 'x')));
  EXPECT_FALSE(IsPlainLine(std::string(kLongestLine + 1, 'x')));
  EXPECT_EQ(LineNumber("99999 x"), 99999);
  EXPECT_EQ(LineNumber("100000 x"), 0);
}

}  // namespace
}  // namespace zek::sim
