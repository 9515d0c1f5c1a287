#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "editors/WeekdayEditor.h"
#include "formats/WeekdayCells.h"
#include "support/ScriptedPrompts.h"
#include "text/Fields.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;
using test::ScriptedPrompts;
constexpr auto kEdit = Access::Edit;

const Lines kLines = {" 1000 !T           !MO..WE       !07:00..16:30             !21       !17"};

TEST(WeekdayCells, TimesAsTyped) {
  // What is typed and what is then shown, "-" when the entry is refused.
  const Lines cases = {">",           "  >",         "7:5>07:05",     "23,75>24:00",
                       "24.00>24:00", "25:00>-",     "0.90>01:30",    " 7.30 >07:30",
                       ":30>00:30",   "8:>08:00",    "0:1440>24:00",  "0:1999>24:00",
                       "0:2000>-",    "-1:00>-",     "1:-1>-",        "1e9:00>-",
                       "0:1e999>-",   "ab:cd>00:00", "7.30:15>07:30", "7>07:00",
                       "16>16:00",    "730>07:30",   "1630>16:30",    "2400>24:00",
                       "2460>24:00",  "2500>-",      "25>-",          "12345>-",
                       "abc>-",       "-7>-",        "1e1>-"};
  for (const std::string& each : cases) {
    const auto time = TypedTime(GetField(each, 0, ">"));
    EXPECT_EQ(time ? TimeText(*time) : "-", GetField(each, 1, ">")) << each;
  }
}

TEST(WeekdayEditor, ValuesAsTyped) {
  WeekdayEditor editor(kLines, "T", ',', kEdit);
  editor.EnterValueOn(6, "");
  EXPECT_EQ(editor.ValueOnText(6), "");  // no start time: an empty row
  editor.EnterValueOn(6, "21.5");
  editor.EnterValueOff(6, " 17,25 ");
  EXPECT_EQ(editor.ValueOnText(6), "21,5");
  EXPECT_EQ(editor.ValueOffText(6), "17,25");
  editor.EnterValueOn(0, "");
  EXPECT_EQ(editor.ValueOnText(0), "0");
  for (const char* none : {"", " ", ".", ",", "999999"}) {
    editor.EnterValueOff(6, "3");
    editor.EnterValueOff(6, none);
    EXPECT_EQ(editor.ValueOffText(6), "") << none;
  }
}

TEST(WeekdayEditor, LeavingABoxUnchangedKeepsTheLastBit) {
  WeekdayEditor editor(Lines{"1!T!MO!07:00!0.333333333!8.58993459e9"}, "T", '.', kEdit);
  const WeekdayTable before = editor.Table();
  editor.EnterValueOn(0, editor.ValueOnText(0));
  editor.EnterValueOff(0, editor.ValueOffText(0));
  EXPECT_EQ(editor.Table(), before);
}

TEST(WeekdayEditor, RefusedTimeLeavesTheOldOne) {
  WeekdayEditor editor(kLines, "T", '.', kEdit);
  editor.EnterStart(0, "25:00");
  editor.EnterStop(0, "1:-90");
  EXPECT_EQ(editor.StartText(0), "07:00");
  EXPECT_EQ(editor.StopText(0), "16:30");
}

TEST(WeekdayEditor, CopyAndEraseWalkTheRow) {
  WeekdayEditor editor(kLines, "T", '.', kEdit);
  editor.FocusColumn(2);
  for (const std::size_t column : {3U, 4U, 5U, 6U, 0U}) EXPECT_EQ(editor.Copy(), column);
  LanguageTexts texts;
  texts.Read("271=Veckodagar\n272=Specialdagar\n");
  EXPECT_EQ(editor.TypeCaption(0, texts), "Veckodagar (7)");
  editor.FocusColumn(6);
  EXPECT_EQ(editor.Erase(), 0U);
  EXPECT_EQ(editor.Erase(), 1U);
  EXPECT_EQ(editor.Table().days[6][0], WeekdayRow{});
  EXPECT_EQ(editor.TypeCaption(0, texts), "Veckodagar (5)");

  // The other type and row are other cells.
  editor.ShowType(1);
  editor.ShowRow(15);
  editor.EnterStart(1, "8");
  editor.EnterValueOn(1, "1");
  EXPECT_EQ(editor.Copy(), 2U);
  EXPECT_EQ(editor.Table().days[9][15], (WeekdayRow{480, kNoTime, 1, kNoValue}));
  EXPECT_EQ(editor.TypeCaption(1, texts), "Specialdagar (2)");
}

TEST(WeekdayEditor, EnterGoesDownAndAcross) {
  WeekdayFocus focus{WeekdayBox::Start, 5};
  for (int key = 0; key < 7; ++key) focus = NextFocus(focus);
  EXPECT_EQ(focus, (WeekdayFocus{WeekdayBox::ValueOff, 6}));
  EXPECT_EQ(NextFocus(focus), (WeekdayFocus{WeekdayBox::Start, 0}));
}

TEST(WeekdayEditor, PltHasNoStopValues) {
  WeekdayEditor editor(Lines{" 701  MO                       !07:00        !1     "}, "PLT7", '.',
                       kEdit);
  editor.EnterValueOff(0, "5");
  EXPECT_FALSE(editor.HasStopValues());
  EXPECT_EQ(editor.ValueOffText(0), "");
}

struct SaveTest : testing::Test {
  SaveTest() {
    texts.Read("267=again\n268=title\n269=day\n270=full\n650=lost %1\n651=save\n654=long %1\n");
  }

  // Saves with a writer that fails `failures` times.
  bool Save(const WeekdayEditor& editor, int failures) {
    const auto writer = [this, failures](const Lines& lines) {
      written.push_back(lines);
      return written.size() > static_cast<std::size_t>(failures);
    };
    const auto edited = editor.Edited();
    return edited && SaveWithRetry(*edited, writer, {texts, prompts}) == SaveOutcome::Written;
  }

  LanguageTexts texts;
  ScriptedPrompts prompts;
  std::vector<Lines> written;
};

TEST_F(SaveTest, RepeatsAFailedWriteAsLongAsWanted) {
  prompts.answers = {true, true};
  EXPECT_TRUE(Save(WeekdayEditor(kLines, "T", '.', kEdit), 2));
  EXPECT_EQ(written, (std::vector<Lines>{kLines, kLines, kLines}));
  EXPECT_EQ(prompts.shown, (Lines{"q? again", "q? again"}));
  written.clear();
  prompts.answers = {true, false};
  EXPECT_FALSE(Save(WeekdayEditor(kLines, "T", '.', kEdit), 9));
  EXPECT_EQ(written.size(), 2U);
}

TEST_F(SaveTest, AsksBeforeLinesAreLost) {
  const Lines lines = {kLines[0], "2!T!XX!", "3!T!MO!07:00!1!."};
  WeekdayEditor editor(lines, "T", '.', kEdit);
  ShowRefused(*editor.Refused(), prompts, texts);
  prompts.answers = {false, true};
  EXPECT_FALSE(Save(editor, 0));
  EXPECT_TRUE(written.empty());
  editor.CountLost(3);  // of a listing that was cut
  EXPECT_TRUE(Save(editor, 0));
  EXPECT_EQ(written, std::vector<Lines>{kLines});
  EXPECT_EQ(prompts.shown, (Lines{"i day (2!T!XX!)", "x? lost 2", "x? lost 5"}));
}

TEST_F(SaveTest, WritesNothingThatCannotBeBuilt) {
  WeekdayEditor editor(kLines, "T", '.', kEdit);
  editor.EnterValueOn(0, "1.234567e-10");
  EXPECT_FALSE(Save(editor, 0));
  EXPECT_TRUE(written.empty());
  EXPECT_EQ(prompts.shown, Lines{"x long 1.234567E-10"});
}

TEST_F(SaveTest, EmptyTableWritesAnEmptyCatalogue) {
  WeekdayEditor editor(Lines{"1!T!MO!07:00!1!."}, "T", '.', kEdit);
  editor.Erase();
  EXPECT_TRUE(Save(editor, 0));
  EXPECT_EQ(written, std::vector<Lines>{Lines{}});
}

TEST_F(SaveTest, ViewOnlyChangesNothing) {
  WeekdayEditor editor(kLines, "T", '.', Access::ViewOnly);
  const WeekdayTable before = editor.Table();
  editor.EnterStart(0, "8:00");
  editor.EnterStop(0, "");
  editor.EnterValueOn(0, "5");
  editor.EnterValueOff(0, "5");
  EXPECT_EQ(editor.Copy(), 0U);
  EXPECT_EQ(editor.Erase(), 0U);
  EXPECT_EQ(editor.Table(), before);
  EXPECT_FALSE(Save(editor, 0));
  EXPECT_TRUE(written.empty() && prompts.shown.empty());
}

}  // namespace
}  // namespace zek
