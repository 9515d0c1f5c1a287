#include <gtest/gtest.h>

#include "editors/EditorPlayers.h"
#include "formats/CalendarNames.h"

namespace zek {
namespace {

template <class Player>
void CheckEditor(const std::string& file) {
  test::CheckFormat(file, [](const test::FormatCase& given) { return Player(given).PlayAll(); });
}

// Each line of the table is typed into a fresh editor.
template <class Player>
std::string Entered(const std::string& head, const std::vector<std::string>& lines) {
  const auto isEntry = [](const std::string& line) { return line[0] != '='; };
  std::vector<std::string> catalogue = lines;
  std::erase_if(catalogue, isEntry);
  std::string outcome;
  for (const std::string& line : lines) {
    if (!isEntry(line)) continue;
    const test::FormatCase given{head.substr(head.find(' ')), catalogue};
    outcome += line + " gives " + Player(given).Play("enter 0 " + line) + "\n";
  }
  return outcome;
}

TEST(Editors, Entries) {
  test::CheckCases("entries.txt", [](const test::TextCase& each) {
    if (each.head.starts_with("weekday"))
      return Entered<test::WeekdayPlayer>(each.head, each.given);
    if (each.head.starts_with("calendar"))
      return Entered<test::CalendarPlayer>(each.head, each.given);
    return Entered<test::ExceptionPlayer>(each.head, each.given);
  });
}

TEST(WeekdayEditor, Cases) { CheckEditor<test::WeekdayPlayer>("weekday-editor.txt"); }
TEST(ExceptionEditor, Cases) { CheckEditor<test::ExceptionPlayer>("exception-editor.txt"); }
TEST(CalendarEditor, Cases) { CheckEditor<test::CalendarPlayer>("calendar-editor.txt"); }

TEST(CalendarEditor, MonthsBeginInTheirColumn) {
  const CalendarYears years{Generation::Zek1, 30, 2030};
  const auto month = [&](const CalendarDate& today) {
    return CalendarEditor({}, {}, years, today, Access::Edit);
  };
  const CalendarEditor december = month({2026, 11, 24});
  EXPECT_EQ(december.FirstColumn(), 1);  // 1 December 2026 is a Tuesday
  EXPECT_EQ(december.DayAt(0, 0), std::nullopt);
  EXPECT_EQ(december.DayAt(0, 1), 1);
  EXPECT_EQ(december.DayAt(1, 0), 7);
  EXPECT_EQ(december.DayAt(4, 3), 31);
  EXPECT_EQ(december.DayAt(4, 4), std::nullopt);
  EXPECT_EQ(december.DayAt(-1, 3), std::nullopt);
  EXPECT_EQ(december.DayAt(1, 7), std::nullopt);
  EXPECT_EQ(month({2026, 1, 1}).DayAt(0, 6), 1);
  EXPECT_EQ(month({2028, 1, 1}).Days(), 29);
}

TEST(CalendarEditor, NamesOfDayTypesAndSmallLetters) {
  LanguageTexts texts;
  texts.Read("211=\xD6ndag\n224=Inget\n");
  EXPECT_EQ(DayTypeCaption(0, texts, {}), "Inget");
  EXPECT_EQ(DayTypeCaption(7, texts, {}), "\xD6ndag");
  EXPECT_EQ(DayTypeCaption(14, texts, {"", "", "", "", "", "", "Jul"}), "SD7 Jul");
  EXPECT_EQ(DayTypeAbbreviation(1, LanguageTexts()), "MO ");
  const CalendarEditor editor({}, {}, {Generation::Zek1, 30, 2030}, {2026, 11, 24}, Access::Edit);
  for (const auto& [day, spoken] : {std::pair("Apple", "apple"),
                                    {"Zoo", "zoo"},
                                    {"@x", "@x"},
                                    {"[x", "[x"},
                                    {"\xC0x", "\xE0x"},
                                    {"\xDEx", "\xFEx"},
                                    {"\xBFx", "\xBFx"},
                                    {"\xDFx", "\xDFx"}}) {
    texts.Read("208=" + std::string(day) + "\n223=December\n");
    EXPECT_TRUE(editor.CellName(24, texts).starts_with(spoken)) << spoken;
  }
}

}  // namespace
}  // namespace zek
