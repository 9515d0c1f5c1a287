#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <vector>

#include "editors/ExceptionEditor.h"
#include "lang/TextNumbers.h"
#include "support/TestSession.h"
#include "text/Fields.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;
using Box = ExceptionBox;
using test::ScriptedPrompts;
constexpr auto kEdit = Access::Edit;

const Lines kLines = {"    1 !T           !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16"};

// It is half past one in the afternoon of the first of August 2026.
Moment Now() { return DateMoment(2026, 8, 1) + TimeMoment(13, 30); }

ExceptionEditor Editor(const Lines& lines = kLines, Generation generation = Generation::Zek1,
                       const std::string& name = "T", Access access = kEdit) {
  return {lines, {name, generation}, '.', access, Now};
}

std::string Joined(const ExceptionTexts& row) {
  std::string all;
  for (const std::string& text : row.texts) all += text + "|";
  all.pop_back();
  return all;
}

// Types into boxes of a row and leaves the last one; what was wrong, as it was typed.
Lines Type(ExceptionEditor& editor, std::size_t row,
           const std::vector<std::pair<Box, std::string>>& entries) {
  ExceptionTexts typed = editor.RowTexts(row);
  for (const auto& [box, text] : entries) typed[box] = text;
  Lines wrong;
  for (const WrongEntry& each : editor.Enter({entries.back().first, row}, typed))
    wrong.push_back((each.text == text::kDateWrong ? "date " : "time ") + each.typed);
  return wrong;
}

TEST(ExceptionCells, DatesAsTyped) {
  // What is typed and the date it gives, "-" when it is refused.
  const Lines cases = {"2026-12-24>2026-12-24",
                       "20261224>2026-12-24",
                       "26-12-24>-",
                       "261224>-",
                       "2026-02-31>2026-03-03",
                       "20260431>2026-05-01",
                       "2026-13-01>-",
                       "2026-00-01>-",
                       "2026-01-32>-",
                       "2026-01-00>-",
                       "2026-1-2>-",
                       "2026/12/24>-",
                       "0020-01-01>2020-01-01",
                       "0021-01-01>-",
                       "0089-01-01>-",
                       "0090-01-01>1990-01-01",
                       "1e9-12-24>-",
                       "-001-01-01>-",
                       ">-",
                       "x>-",
                       "0000-01-01>2000-01-01",
                       "9999-12-31>9999-12-31",
                       "2026-12-24x>2026-12-24"};
  for (const std::string& each : cases) {
    const auto moment = TypedExceptionDate(GetField(each, 0, ">"));
    EXPECT_EQ(moment ? DateText(*moment) : "-", GetField(each, 1, ">")) << each;
  }
}

TEST(ExceptionCells, TimesAsTyped) {
  // What is typed and its minutes, -1 when it is refused.
  const std::vector<std::pair<std::string, int>> cases = {
      {"08:15", 495},   {"0815", 495}, {"24:00", 1440}, {"24:59", 1499},
      {"24:60", -1},    {"25:00", -1}, {"2500", -1},    {"", 0},
      {"8", 480},       {"07", 420},   {"ab:cd", -1},   {"7:30", 450},
      {" 07:30 ", 450}, {"815", -1},   {"-1:30", -1},   {"1e99", -1}};
  for (const auto& [typed, minutes] : cases)
    EXPECT_EQ(TypedExceptionTime(typed).value_or(-1), minutes) << typed;
}

TEST(ExceptionEditor, ANewEntryStartsAsAPointInTime) {
  ExceptionEditor editor = Editor();
  EXPECT_EQ(Type(editor, 3, {{Box::DateOn, "2026-12-31"}}), Lines{});
  EXPECT_EQ(Joined(editor.RowTexts(3)), "2026-12-31|00:00|0|2026-12-31|00:00|");
  Type(editor, 3, {{Box::Start, "0815"}});
  EXPECT_EQ(Joined(editor.RowTexts(3)), "2026-12-31|08:15|0|2026-12-31|00:00|");
  Type(editor, 3, {{Box::DateOff, "20270102"}, {Box::Stop, "24:00"}});
  EXPECT_EQ(Joined(editor.RowTexts(3)), "2026-12-31|08:15|0|2027-01-03|00:00|");
  EXPECT_EQ(Joined(editor.RowTexts(4)), "|||||");
}

TEST(ExceptionEditor, WhatIsWrongBecomesNow) {
  // What is typed as date and time, what was wrong, and what both boxes show then.
  const std::vector<std::tuple<std::string, std::string, Lines, std::string>> cases = {
      {"26-12-24", "08:00", {"date 26-12-24"}, "2026-08-01|08:00"},
      {"2026-12-24", "25:00", {"time 25:00"}, "2026-12-24|13:30"},
      {"nix", "24:60", {"date nix", "time 24:60"}, "2026-08-01|13:30"},
  };
  for (const auto& [date, time, wrong, shown] : cases) {
    ExceptionEditor editor = Editor();
    EXPECT_EQ(Type(editor, 1, {{Box::DateOn, date}, {Box::Start, time}}), wrong);
    EXPECT_EQ(Type(editor, 2, {{Box::DateOff, date}, {Box::Stop, time}}), wrong);
    EXPECT_EQ(Joined(editor.RowTexts(1)).substr(0, 16), shown);
    EXPECT_EQ(Joined(editor.RowTexts(2)).substr(19, 16), shown);
  }
  // An empty stop date is no date.
  ExceptionEditor editor = Editor(Lines{"1!T!24-DEC-26,08:00!1!."});
  EXPECT_EQ(Type(editor, 0, {{Box::Stop, "17:00"}}), Lines{"date "});
  EXPECT_EQ(Joined(editor.RowTexts(0)), "2026-12-24|08:00|1|2026-08-01|17:00|");
  EXPECT_EQ(Type(editor, 0, {{Box::DateOff, ""}}), Lines{"date "});
}

TEST(ExceptionEditor, MessagesNameWhatWasTyped) {
  ScriptedPrompts prompts;
  ShowWrong({{text::kDateWrong, "%1 x"}, {text::kTimeWrong, ""}}, prompts, LanguageTexts());
  EXPECT_EQ(prompts.shown, (Lines{"i Felaktigt datum %1 x", "i Felaktig tid "}));

  prompts.shown.clear();
  LanguageTexts texts;
  texts.Read("161=full\n670=refused\n");
  Lines lines = {"1!T!24-MAJ-26!1!0", "2!T!24-DEC-26!1!0"};
  lines.insert(lines.end(), 8, lines[1]);
  const ExceptionEditor editor = Editor(lines);
  for (const RefusedException& each : editor.Refused()) ShowRefused(each, prompts, texts);
  EXPECT_EQ(prompts.shown, (Lines{"i refused (" + lines[0] + ")", "i full"}));
}

TEST(ExceptionEditor, AnEmptyStartDateClearsTheRow) {
  ExceptionEditor editor = Editor();
  EXPECT_EQ(Type(editor, 0, {{Box::DateOn, ""}, {Box::Start, "99:99"}}), Lines{});
  EXPECT_EQ(editor.Table(), ExceptionTable{});
  Type(editor, 2, {{Box::Start, "08:00"}});
  EXPECT_EQ(editor.Table(), ExceptionTable{});
}

TEST(ExceptionEditor, EraseKeepsAllButTheMark) {
  ExceptionEditor editor = Editor();
  OvcRow row = editor.Table().rows[0];
  EXPECT_EQ(editor.Erase(), 1U);
  row.used = false;
  EXPECT_EQ(editor.Table().rows[0], row);
  EXPECT_EQ(Joined(editor.RowTexts(0)), "|||||");
  Type(editor, 0, {{Box::DateOn, "2027-01-01"}});
  EXPECT_EQ(Joined(editor.RowTexts(0)), "2027-01-01|00:00|21|2026-12-26|17:00|16");
  editor.FocusRow(7);
  EXPECT_EQ(editor.Erase(), 0U);
}

TEST(ExceptionEditor, ValuesAsTyped) {
  const std::vector<std::pair<std::string, float>> cases = {
      {"21,5", 21.5F}, {" 17.25 ", 17.25F}, {".", kNoValue}, {" , ", kNoValue}, {"", 0},
      {"x", 0},        {"999999", kNoValue}};
  for (const auto& [typed, value] : cases) {
    ExceptionEditor editor = Editor();
    Type(editor, 0, {{Box::ValueOn, typed}});
    Type(editor, 0, {{Box::ValueOff, typed}});
    EXPECT_EQ(editor.Table().rows[0].valueOn, value) << typed;
    EXPECT_EQ(editor.Table().rows[0].valueOff, value) << typed;
  }
}

// Rows without a stop date, with values of more digits than are shown, unused ones.
TEST(ExceptionEditor, WalkingOverTheRowsChangesNothing) {
  const Lines lines = {"1     24-DEC-2026!08:00!0.333333333!8.58993459e9",
                       "2     24-DEC-2025!08:00..24:00!.!.", "3     24-DEC-2024!08:00..09:00!.!."};
  ExceptionEditor editor = Editor(lines, Generation::Zek2);
  editor.FocusRow(1);
  editor.Erase();
  const ExceptionTable before = editor.Table();
  ExceptionFocus at;
  for (std::size_t boxes = kExceptionRows * kExceptionBoxes; boxes > 0; --boxes) {
    EXPECT_TRUE(editor.Enter(at, editor.RowTexts(at.row)).empty());
    at = NextFocus(at);
  }
  EXPECT_EQ(at, ExceptionFocus{});  // all round
  EXPECT_EQ(editor.Table(), before);
}

struct SaveExceptionsTest : testing::Test {
  SaveOutcome Save(const ExceptionEditor& editor, int failures = 0) {
    const auto writer = [this, failures](const Lines& lines) {
      written.push_back(lines);
      return written.size() > static_cast<std::size_t>(failures);
    };
    const auto edited = editor.Edited(session.proc.Numbers());
    return edited ? SaveWithRetry(*edited, writer, session.proc.ToUser()) : SaveOutcome::NotTried;
  }

  test::TestSession session;
  ScriptedPrompts& prompts = session.prompts;
  std::vector<Lines> written;
};

TEST_F(SaveExceptionsTest, RepeatsAFailedWriteAsLongAsWanted) {
  prompts.answers = {true, true};
  EXPECT_EQ(Save(Editor(), 2), SaveOutcome::Written);
  EXPECT_EQ(written, (std::vector<Lines>{kLines, kLines, kLines}));
  EXPECT_EQ(prompts.shown, (Lines{"q? T159", "q? T159"}));
  prompts.answers = {false};
  EXPECT_EQ(Save(Editor(), 9), SaveOutcome::GivenUp);
}

TEST_F(SaveExceptionsTest, AsksBeforeLinesAreLost) {
  const Lines lines = {kLines[0], "2!T!24-MAJ-26!", "3!U!24-DEC-26! *"};
  prompts.answers = {false, true};
  EXPECT_EQ(Save(Editor(lines)), SaveOutcome::NotTried);
  EXPECT_TRUE(written.empty());
  EXPECT_EQ(Save(Editor(lines)), SaveOutcome::Written);
  EXPECT_EQ(written, std::vector<Lines>{kLines});
  EXPECT_EQ(prompts.shown, (Lines{"x? T650", "x? T650"}));
}

TEST_F(SaveExceptionsTest, WritesNothingThatCannotBeBuiltOrNumbered) {
  ExceptionEditor editor = Editor();
  Type(editor, 0, {{Box::DateOn, "2090-01-01"}});
  EXPECT_EQ(Save(editor), SaveOutcome::NotTried);
  ASSERT_FALSE(session.profile.WriteIni("SaveOptionsZEK1", "OVCStartRow", "40000"));
  EXPECT_EQ(Save(Editor()), SaveOutcome::NotTried);
  EXPECT_TRUE(written.empty());
  EXPECT_EQ(prompts.shown.size(), 2U);
  EXPECT_EQ(prompts.shown[0], "x T673");
}

TEST_F(SaveExceptionsTest, ClearedRowsAreDropped) {
  ExceptionEditor editor = Editor(Lines{"1     24-DEC-2026!08:00..09:00!1!."}, Generation::Zek2);
  Type(editor, 0, {{Box::DateOn, ""}});
  EXPECT_EQ(Save(editor), SaveOutcome::Written);
  EXPECT_EQ(written, std::vector<Lines>{Lines{}});
}

TEST_F(SaveExceptionsTest, ViewOnlyAndRootNodesChangeNothing) {
  const Lines unnamed = {"1!!24-DEC-26,08:00!1!."};
  for (ExceptionEditor editor : {Editor(kLines, Generation::Zek1, "T", Access::ViewOnly),
                                 Editor(unnamed, Generation::Zek1, "")}) {
    const ExceptionTable before = editor.Table();
    EXPECT_TRUE(before.rows[0].used);
    Type(editor, 0, {{Box::DateOn, ""}});
    EXPECT_EQ(Type(editor, 0, {{Box::DateOff, "x"}}), Lines{});
    Type(editor, 0, {{Box::ValueOn, "5"}});
    EXPECT_EQ(editor.Erase(), 0U);
    EXPECT_EQ(editor.Table(), before);
    EXPECT_EQ(Save(editor), SaveOutcome::NotTried);
  }
  EXPECT_TRUE(written.empty() && prompts.shown.empty());
}

}  // namespace
}  // namespace zek
