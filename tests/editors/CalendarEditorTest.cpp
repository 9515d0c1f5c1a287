#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <vector>

#include "editors/CalendarEditor.h"
#include "formats/CalendarNames.h"
#include "formats/CalendarRecords.h"
#include "lang/TextNumbers.h"
#include "support/ScriptedPrompts.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;
using test::ScriptedPrompts;

constexpr CalendarYears kYears{Generation::Zek1, 30, 2030};
constexpr CalendarDate kToday{2026, 11, 24};  // a Thursday
constexpr int kSD1 = 8;

struct CalendarEditorTest : testing::Test {
  CalendarEditorTest() {
    std::string file =
        "205=Mandag\n207=Onsdag\n208=Torsdag\n210=Lordag\n211=\xD6"
        "ndag\n"
        "212=Januari\n221=Oktober\n223=December\n224=Inget\n229=type\n"
        "230=   Ma Ti On To Fr Lo So SD1SD2SD3SD4SD5SD6SD7\n"
        "267=again\n268=title\n";
    texts.Read(file);
  }

  CalendarEditor Editor(const Lines& lines = {}, Access access = Access::Edit,
                        CalendarDate today = kToday) const {
    return {lines, "T", kYears, today, access};
  }
  void Drag(CalendarEditor& editor, std::optional<int> from, std::optional<int> to) {
    editor.Press(from);
    editor.Release(to, prompts, texts);
  }
  // "24-26" and the types of these days, of the calendar as it would be saved.
  static Lines Saved(const CalendarEditor& editor) { return CalendarRecords(editor.Table(), {}); }

  LanguageTexts texts;
  ScriptedPrompts prompts;
};

TEST_F(CalendarEditorTest, MonthsBeginInTheirColumn) {
  const CalendarEditor december = Editor();
  EXPECT_EQ(december.FirstColumn(), 1);  // 1 December 2026 is a Tuesday
  EXPECT_EQ(december.DayAt(0, 0), std::nullopt);
  EXPECT_EQ(december.DayAt(0, 1), 1);
  EXPECT_EQ(december.DayAt(4, 3), 31);
  EXPECT_EQ(december.DayAt(4, 4), std::nullopt);
  EXPECT_EQ(december.DayAt(-1, 3), std::nullopt);
  EXPECT_EQ(december.DayAt(1, 7), std::nullopt);
  const CalendarEditor sunday = Editor({}, Access::Edit, {2026, 1, 1});
  EXPECT_EQ(sunday.DayAt(0, 6), 1);
  EXPECT_EQ(Editor({}, Access::Edit, {2028, 1, 1}).Days(), 29);
}

TEST_F(CalendarEditorTest, MouseGivesAndTakesTypes) {
  CalendarEditor editor = Editor();
  editor.ChooseType(kSD1);
  Drag(editor, 24, 26);
  EXPECT_EQ(editor.Selection(), (DayRun{24, 26}));
  EXPECT_EQ(Saved(editor), (Lines{";;2026-12-24;SD1", ";;2026-12-25;SD1", ";;2026-12-26;SD1"}));
  editor.ChooseType(kNoDayType);
  Drag(editor, 25, 25);
  EXPECT_EQ(Saved(editor), (Lines{";;2026-12-24;SD1", ";;2026-12-26;SD1"}));
  editor.ChooseType(1);
  Drag(editor, 4, 3);  // backwards
  EXPECT_EQ(editor.Table().TypeOn({2026, 11, 3}), 1);
  EXPECT_EQ(editor.Table().TypeOn({2026, 11, 4}), 1);
}

TEST_F(CalendarEditorTest, OutsideTheDaysTheMouseChangesNothing) {
  CalendarEditor editor = Editor();
  editor.ChooseType(kSD1);
  Drag(editor, std::nullopt, 5);
  EXPECT_EQ(editor.Selection(), std::nullopt);
  editor.Drag(7);  // never pressed
  editor.Release(7, prompts, texts);
  EXPECT_EQ(editor.Cursor(), kToday.day);
  EXPECT_TRUE(Saved(editor).empty());
  editor.Press(30);
  EXPECT_EQ(editor.Cursor(), 30);
  editor.Drag(31);
  editor.Release(std::nullopt, prompts, texts);
  EXPECT_EQ(Saved(editor).size(), 2U);
  editor.Press(1);
  editor.Drag(9);
  editor.CancelDrag();
  editor.Release(9, prompts, texts);
  EXPECT_EQ(editor.Selection(), std::nullopt);
  EXPECT_EQ(editor.Cursor(), 1);
  EXPECT_EQ(Saved(editor).size(), 2U);
}

TEST_F(CalendarEditorTest, KeysMoveTheCursor) {
  using Move = CalendarMove;
  // From where (month and day of the base year), by which key, to where.
  const std::vector<std::tuple<CalendarDate, Move, CalendarDate>> cases = {
      {{2026, 11, 24}, Move::Right, {2026, 11, 25}}, {{2026, 11, 24}, Move::Up, {2026, 11, 17}},
      {{2026, 11, 31}, Move::Right, {2027, 0, 1}},   {{2026, 11, 27}, Move::Down, {2027, 0, 3}},
      {{2026, 2, 1}, Move::Left, {2026, 1, 28}},     {{2026, 2, 7}, Move::Up, {2026, 1, 28}},
      {{2026, 0, 1}, Move::Left, {2026, 0, 1}},      {{2026, 0, 7}, Move::Up, {2026, 0, 7}},
      {{2026, 1, 9}, Move::End, {2026, 1, 28}},      {{2026, 1, 9}, Move::Home, {2026, 1, 1}},
  };
  for (const auto& [from, move, to] : cases) {
    CalendarEditor editor = Editor({}, Access::Edit, from);
    editor.MoveCursor(move, false);
    EXPECT_EQ((CalendarDate{2026 + editor.Year(), editor.Month(), editor.Cursor()}), to)
        << from.month << "-" << from.day;
    EXPECT_EQ(editor.Selection(), std::nullopt);
  }
}

TEST_F(CalendarEditorTest, KeysSelectWithinTheMonth) {
  CalendarEditor editor = Editor();
  editor.MoveCursor(CalendarMove::Right, true);
  EXPECT_EQ(editor.Selection(), (DayRun{24, 25}));
  editor.MoveCursor(CalendarMove::Down, true);
  editor.MoveCursor(CalendarMove::Right, true);
  EXPECT_EQ(editor.Selection(), (DayRun{24, 31}));
  EXPECT_EQ(editor.Month(), 11);
  editor.MoveCursor(CalendarMove::Home, true);
  EXPECT_EQ(editor.Selection(), (DayRun{1, 24}));
  editor.ChooseType(kSD1);
  editor.Apply(prompts, texts);
  EXPECT_EQ(Saved(editor).size(), 24U);
  editor.ChooseType(kNoDayType);
  editor.MoveCursor(CalendarMove::Right, false);
  editor.Apply(prompts, texts);  // the cursor's day alone
  EXPECT_EQ(editor.Table().TypeOn({2026, 11, 2}), kNoDayType);
  EXPECT_EQ(Saved(editor).size(), 23U);
}

TEST_F(CalendarEditorTest, StepsStayWithinSixYears) {
  CalendarEditor editor = Editor({}, Access::Edit, {2026, 11, 31});
  editor.MoveCursor(CalendarMove::Home, true);
  EXPECT_TRUE(editor.Next());
  EXPECT_EQ(editor.Selection(), std::nullopt);
  EXPECT_EQ(editor.MonthText(texts), "Januari 2027");
  EXPECT_TRUE(editor.Last());
  EXPECT_FALSE(editor.Step(-12));
  editor.ShowYear(5);
  EXPECT_FALSE(editor.Next());
  EXPECT_EQ(editor.MonthText(texts), "December 2031");
  EXPECT_TRUE(editor.Step(-12));
  EXPECT_EQ(editor.Year(), 4);
  editor.ShowMonth(0);
  editor.MoveCursor(CalendarMove::End, false);
  EXPECT_EQ(editor.Cursor(), 31);
  editor.ShowMonth(1);
  EXPECT_EQ(editor.Cursor(), 28);
}

TEST_F(CalendarEditorTest, CellsInShapesAndWords) {
  const Lines lines = {"1!24-DEC-26!SD1", "2!26-DEC-26!MO", "3!23-DEC-26!SU"};
  CalendarEditor editor = Editor(lines);
  EXPECT_EQ(editor.CellName(24, texts), "torsdag 24 december 2026, SD1, i dag");
  editor.Press(25);
  editor.Drag(26);
  for (int day = 24; day <= 27; ++day)
    EXPECT_EQ(editor.Cell(day, texts).selected, day == 25 || day == 26) << day;
  EXPECT_EQ(editor.CellName(26, texts), "lordag 26 december 2026, som mandag, markerad");
  EXPECT_EQ(editor.CellName(23, texts), "onsdag 23 december 2026, som \xF6ndag");
  for (const auto& [day, spoken] : {std::pair("Apple", "apple"),
                                    {"Zoo", "zoo"},
                                    {"@x", "@x"},
                                    {"[x", "[x"},
                                    {"\xC0x", "\xE0x"},
                                    {"\xDEx", "\xFEx"},
                                    {"\xBFx", "\xBFx"},
                                    {"\xDFx", "\xDFx"}}) {
    LanguageTexts others;
    others.Read("208=" + std::string(day) + "\n221=Oktober\n223=December\n");
    EXPECT_TRUE(editor.CellName(24, others).starts_with(spoken)) << spoken;
  }
  EXPECT_EQ(editor.Cell(26, texts).type, "Ma ");
  EXPECT_EQ(editor.Cell(26, texts).Colour(), DayColour::Selected);
  EXPECT_EQ(editor.Cell(24, texts).type, "SD1");
  EXPECT_EQ(editor.Cell(24, texts).Colour(), DayColour::Ordinary);
  EXPECT_TRUE(editor.Cell(24, texts).today);
  EXPECT_EQ(editor.Cell(27, texts).Colour(), DayColour::Free);
  EXPECT_EQ(editor.Cell(27, texts).type, "   ");
  editor.Next();
  EXPECT_FALSE(editor.Cell(24, texts).today);
  const CalendarEditor holidays = Editor({}, Access::Edit, {2001, 10, 1});
  EXPECT_EQ(holidays.Cell(3, texts).Colour(), DayColour::Free);
  EXPECT_NE(holidays.CellName(3, texts).find(", helgdag"), std::string::npos);
  EXPECT_EQ(DayTypeCaption(0, texts), "Inget");
  EXPECT_EQ(DayTypeCaption(7, texts), "\xD6ndag");
  EXPECT_EQ(DayTypeCaption(14, texts), "SD7");
  EXPECT_EQ(DayTypeAbbreviation(1, LanguageTexts()), "MO ");
}

TEST_F(CalendarEditorTest, RefusesAYearThatNoLineHolds) {
  CalendarEditor editor = Editor();
  editor.ShowYear(5);
  editor.Apply(prompts, texts);  // removing is no harm
  EXPECT_TRUE(prompts.shown.empty());
  editor.ChooseType(kSD1);
  Drag(editor, 1, 2);
  EXPECT_TRUE(Saved(editor).empty());
  ASSERT_EQ(prompts.shown.size(), 1U);
  for (const char* part :
       {"i Datum i ", "2031", "1994", "2030", "SDCLastTwoDigitYear", "30", "[General]"}) {
    EXPECT_NE(prompts.shown[0].find(part), std::string::npos) << part;
  }
  editor.ShowYear(4);
  editor.Apply(prompts, texts);
  EXPECT_EQ(Saved(editor), Lines{";;2030-12-02;SD1"});
}

TEST_F(CalendarEditorTest, TellsOfAFullCalendar) {
  CalendarEditor editor = Editor({"1!01-JAN-27..26-MAY-28!SD2"});
  ASSERT_EQ(Saved(editor).size(), kCalendarEntries);
  const CalendarTable before = editor.Table();
  editor.ChooseType(kSD1);
  editor.Apply(prompts, texts);
  EXPECT_EQ(editor.Table(), before);
  ASSERT_EQ(prompts.shown.size(), 1U);
  EXPECT_NE(prompts.shown[0].find("512"), std::string::npos);
}

struct CalendarSaveTest : CalendarEditorTest {
  bool Save(const CalendarEditor& editor, std::size_t failures = 0) {
    const auto writer = [this, failures](const Lines& lines) {
      written.push_back(lines);
      return written.size() > failures;
    };
    const auto edited = editor.Edited();
    return edited && SaveWithRetry(*edited, writer, {texts, prompts}) == SaveOutcome::Written;
  }

  std::vector<Lines> written;
};

TEST_F(CalendarSaveTest, RepeatsAFailedWrite) {
  const Lines lines = {" 1000 !24-DEC-20                                           !SD1"};
  prompts.answers = {true};
  EXPECT_TRUE(Save(Editor(lines), 1));  // dates that are not shown are kept
  EXPECT_EQ(written, (std::vector<Lines>{lines, lines}));
  EXPECT_EQ(prompts.shown, Lines{"q? again"});
}

TEST_F(CalendarSaveTest, TellsRefusedLinesAndAsksBeforeTheyAreLost) {
  const Lines lines = {" 7  !24-DEC-31!SD1", "8!*!SD1", "9!01-JAN-26!XX",
                       "10!01-JAN-26..31-DEC-28!MO"};
  const CalendarEditor editor = Editor(lines);
  for (const RefusedDates& refused : editor.Refused()) ShowRefused(refused, prompts, texts);
  EXPECT_FALSE(Save(editor));
  EXPECT_TRUE(written.empty());
  ASSERT_EQ(prompts.shown.size(), 4U);
  EXPECT_EQ(prompts.shown[0], "i Felaktiga tider i SDC (rad 7)");
  EXPECT_EQ(prompts.shown[1], "i type (9!01-JAN-26!XX)");
  EXPECT_NE(prompts.shown[2].find("512"), std::string::npos);
  EXPECT_NE(prompts.shown[2].find("10"), std::string::npos);
  EXPECT_NE(prompts.shown[3].find(": 4."), std::string::npos);
}

TEST_F(CalendarSaveTest, ViewOnlyChangesNothing) {
  CalendarEditor editor = Editor({"1!24-DEC-26!SD1"}, Access::ViewOnly);
  Drag(editor, 23, 25);
  EXPECT_EQ(Saved(editor), Lines{";;2026-12-24;SD1"});
  EXPECT_FALSE(Save(editor));
  EXPECT_TRUE(written.empty() && prompts.shown.empty());
}

}  // namespace
}  // namespace zek
