#include <gtest/gtest.h>

#include "editors/EditorPlayers.h"
#include "editors/EntryCases.h"
#include "formats/CalendarNames.h"

namespace zek {
namespace {

template <class Player>
void CheckEditor(const std::string& file) {
  test::CheckFormat(file, [](const test::FormatCase& given) { return Player(given).PlayAll(); });
}

template <class Player>
void CheckEntries(const test::EntryTable& table) {
  for (const test::EntryCase& entry : table.entries)
    EXPECT_EQ(Player(table.given).Play("enter 0 " + entry.text), entry.outcome) << entry.text;
}

TEST(Editors, Entries) {
  for (const test::EntryTable& table : test::EntryTables()) {
    if (table.editor == "weekday") CheckEntries<test::WeekdayPlayer>(table);
    if (table.editor == "exception") CheckEntries<test::ExceptionPlayer>(table);
    if (table.editor == "calendar") CheckEntries<test::CalendarPlayer>(table);
  }
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
