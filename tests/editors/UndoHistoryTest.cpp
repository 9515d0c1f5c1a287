#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "editors/CalendarEditor.h"
#include "editors/ExceptionEditor.h"
#include "editors/UndoHistory.h"
#include "editors/WeekdayEditor.h"
#include "support/ScriptedPrompts.h"
#include "text/Fields.h"

namespace zek {
namespace {

// Letters are appended, "-" changes nothing, "<" and ">" undo and redo. A change of case is a
// change of the table, but none of what it means.
struct SameLetters {
  static std::string Folded(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return std::toupper(c); });
    return text;
  }
  bool operator()(const std::string& one, const std::string& other) const {
    return Folded(one) == Folded(other);
  }
};
using History = UndoHistory<std::string, int, SameLetters>;

std::string Played(History& history, std::string_view script) {
  std::string places;
  const auto note = [&places](std::optional<int> place) {
    places += place ? std::to_string(*place) : "-";
  };
  for (std::size_t i = 0; i < script.size(); ++i) {
    const char step = script[i];
    if (step == '<') {
      note(history.Undo());
    } else if (step == '>') {
      note(history.Redo());
    } else {
      history.Change(static_cast<int>(i), [step](std::string& table) {
        if (step != '-') table += step;
      });
    }
  }
  const EditState state = history.State();
  return history.Now() + (state.changed ? " changed" : "") + (state.canUndo ? " undo" : "") +
         (state.canRedo ? " redo" : "") + (places.empty() ? "" : " at " + places);
}

TEST(UndoHistory, StepsAreTakenBackAndAgain) {
  // What is done, and what there is then: the table, what can be done, the places shown.
  const std::vector<std::string> cases = {
      "~",
      "-~",
      "a~a changed undo",
      "ab<~a changed undo redo at 1",
      "ab<<~ redo at 10",
      "a<<~ redo at 0-",
      "ab<<>>~ab changed undo at 1001",
      "ab<>~ab changed undo at 11",
      "a>~a changed undo at -",
      "ab<-~a changed undo redo at 1",  // what changes nothing leaves the steps that were undone
      "ab<c~ac changed undo at 1",      // a change forgets them
      "ab<c>~ac changed undo at 1-",
      "ab<c<<~ redo at 130",
  };
  for (const std::string& each : cases) {
    History history{""};
    EXPECT_EQ(Played(history, GetField(each, 0, "~")), GetField(each, 1, "~")) << each;
  }
}

TEST(UndoHistory, WhatMeansTheSameIsNoStepAndIsNotLost) {
  History history{"a"};
  const auto set = [&history](const std::string& value) {
    history.Change(0, [&value](std::string& table) { table = value; });
  };
  set("A");
  EXPECT_EQ(history.State(), EditState{});
  set("Ab");
  history.Undo();
  EXPECT_EQ(history.Now(), "A");
  history.Redo();
  EXPECT_EQ(history.Now(), "Ab");
}

TEST(UndoHistory, TheOldestStepsAreForgotten) {
  UndoHistory<int, int> history{0};
  for (std::size_t i = 0; i < kUndoSteps + 5; ++i) history.Change(0, [](int& table) { ++table; });
  std::size_t undone = 0;
  while (history.Undo()) ++undone;
  EXPECT_EQ(undone, kUndoSteps);
  EXPECT_EQ(history.Now(), 5);
  EXPECT_TRUE(history.State().changed);
}

// --- The three editors ---

const std::vector<std::string> kWeek = {
    " 1000 !T           !MO..WE       !07:00..16:30             !21       !17"};
const std::vector<std::string> kExceptions = {
    "    1 !T           !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16"};
const std::vector<std::string> kDates = {
    " 1000 !24-DEC-26..26-DEC-26                                !SD1",
    " 1001 !01-JAN-27                                           !SD2"};
constexpr CalendarYears kYears{Generation::Zek1, 93, 2099};

struct Weekday {
  WeekdayEditor editor{kWeek, "T", '.', Access::Edit};
  static constexpr std::equal_to<WeekdayTable> same{};
};
struct Exception {
  ExceptionEditor editor{kExceptions, {"T", Generation::Zek1}, '.', Access::Edit, [] {
                           return DateMoment(2026, 8, 1);
                         }};
  static constexpr SameExceptions same{};
};
struct Calendar {
  CalendarEditor editor{kDates, "T", kYears, {2026, 11, 24}, Access::Edit};
  static constexpr SameCalendar same{};
};

template <class Case>
class EditorUndo : public testing::Test {
 protected:
  std::size_t Any(std::size_t count) { return random_() % count; }
  std::string AnyOf(const std::vector<std::string>& texts) { return texts[Any(texts.size())]; }
  std::string AnyValue() { return AnyOf({"", ".", "0", "21", "21.5", "-3", "1e9"}); }

  void Edit(WeekdayEditor& editor) {
    editor.ShowType(Any(2));
    editor.ShowRow(Any(3));
    editor.FocusColumn(Any(7));
    const std::string time = AnyOf({"", "7", "07:00", "16:30", "25:00", "24"});
    const std::size_t column = Any(7);
    const std::size_t what = Any(6);
    if (what == 0) editor.EnterStart(column, time);
    if (what == 1) editor.EnterStop(column, time);
    if (what == 2) editor.EnterValueOn(column, AnyValue());
    if (what == 3) editor.EnterValueOff(column, AnyValue());
    if (what == 4) editor.Copy();
    if (what == 5) editor.Erase();
  }
  void Edit(ExceptionEditor& editor) {
    const std::size_t row = Any(kExceptionRows);
    editor.FocusRow(row);
    const std::size_t what = Any(kExceptionBoxes + 1);
    if (what == kExceptionBoxes) {
      editor.Erase();
      return;
    }
    const auto box = static_cast<ExceptionBox>(what);
    ExceptionTexts typed = editor.RowTexts(row);
    typed[box] = AnyOf({"", "2026-12-24", "20261231", "0800", "24:00", "x", "21", "."});
    editor.Enter({box, row}, typed);
  }
  void Edit(CalendarEditor& editor) {
    editor.ShowYear(static_cast<int>(Any(2)));
    editor.ShowMonth(static_cast<int>(Any(2)) * 11);
    editor.ChooseType(static_cast<int>(Any(3)) * 7);
    editor.Press(static_cast<int>(20 + Any(8)));
    editor.Release(static_cast<int>(20 + Any(8)), prompts_, texts_);
  }

  std::mt19937 random_{20261121};
  test::ScriptedPrompts prompts_;
  LanguageTexts texts_;
};

using Editors = testing::Types<Weekday, Exception, Calendar>;
TYPED_TEST_SUITE(EditorUndo, Editors, );

// Edits, undos and redos at random against a list of all tables there were.
TYPED_TEST(EditorUndo, AnyWayBackAndForthGivesTheSameTables) {
  constexpr int sessions = 40;
  for (int session = 0; session < sessions; ++session) {
    TypeParam edited;
    auto& editor = edited.editor;
    const auto opened = editor.Table();
    std::vector tables{opened};
    std::size_t at = 0;
    const auto matches = [&] {
      EXPECT_TRUE(edited.same(editor.Table(), tables[at])) << session;
      EXPECT_EQ(editor.State(),
                (EditState{!edited.same(tables[at], opened), at > 0, at + 1 < tables.size()}));
    };
    for (int i = 0; i < 200; ++i) {
      const std::size_t what = this->Any(10);
      if (what == 0) {
        if (editor.Undo()) --at;
      } else if (what == 1) {
        if (editor.Redo()) ++at;
      } else {
        this->Edit(editor);
        if (!edited.same(editor.Table(), tables[at])) {
          tables.erase(tables.begin() + static_cast<std::ptrdiff_t>(at) + 1, tables.end());
          tables.push_back(editor.Table());
          ++at;
        }
      }
      matches();
    }
    EXPECT_GT(tables.size(), 20U);
    while (editor.Redo()) ++at;
    const auto last = editor.Table();
    while (editor.Undo()) {
      --at;
      matches();
    }
    EXPECT_EQ(at, 0U);
    while (editor.Redo()) {
      ++at;
      matches();
    }
    EXPECT_EQ(at + 1, tables.size());
    EXPECT_EQ(editor.Table(), last);
  }
}

TEST(WeekdayUndo, ShowsWhereTheChangeWas) {
  WeekdayEditor editor(kWeek, "T", '.', Access::Edit);
  editor.ShowType(1);
  editor.ShowRow(4);
  editor.EnterStop(2, "16:30");
  editor.FocusColumn(6);
  editor.Copy();  // of an empty row onto an empty one: nothing
  editor.FocusColumn(2);
  editor.Copy();
  editor.ShowType(0);
  editor.ShowRow(0);
  EXPECT_EQ(editor.Undo(), (WeekdayFocus{WeekdayBox::Start, 3}));
  EXPECT_EQ(editor.Undo(), (WeekdayFocus{WeekdayBox::Stop, 2}));
  EXPECT_EQ(editor.Undo(), std::nullopt);
  EXPECT_EQ(editor.Type(), 1U);
  EXPECT_EQ(editor.Row(), 4U);
  EXPECT_EQ(editor.Column(), 2U);
  EXPECT_EQ(editor.State(), (EditState{false, false, true}));
}

TEST(ExceptionUndo, WhatDoesNotShowIsNoStep) {
  Exception edited;
  ExceptionEditor& editor = edited.editor;
  ExceptionTexts typed;
  typed[ExceptionBox::ValueOn] = "5";
  editor.Enter({ExceptionBox::ValueOn, 3}, typed);
  editor.FocusRow(5);
  editor.Erase();
  EXPECT_EQ(editor.State(), EditState{});
  editor.FocusRow(0);
  editor.Erase();
  EXPECT_EQ(editor.Undo(), (ExceptionFocus{ExceptionBox::DateOn, 0}));
  EXPECT_EQ(editor.Row(), 0U);
  EXPECT_EQ(editor.RowTexts(0)[ExceptionBox::DateOn], "2026-12-24");
}

TEST(CalendarUndo, ASelectionIsOneStepAndIsShownAgain) {
  Calendar edited;
  CalendarEditor& editor = edited.editor;
  test::ScriptedPrompts prompts;
  const LanguageTexts texts;
  const auto drag = [&](int from, int to) {
    editor.Press(from);
    editor.Release(to, prompts, texts);
  };
  editor.ChooseType(8);
  drag(24, 26);  // they have it already
  EXPECT_EQ(editor.State(), EditState{});
  drag(1, 9);
  editor.ShowYear(3);
  editor.ShowMonth(5);
  EXPECT_TRUE(editor.Undo());
  EXPECT_EQ(editor.State(), (EditState{false, false, true}));
  EXPECT_EQ(editor.Year(), 0);
  EXPECT_EQ(editor.Month(), 11);
  EXPECT_EQ(editor.Selection(), (DayRun{1, 9}));
  EXPECT_TRUE(editor.Redo());
  EXPECT_FALSE(editor.Redo());
  editor.ChooseType(9);
  drag(3, 3);
  editor.ChooseType(8);
  drag(3, 3);
  drag(1, 9);  // by now they have it all again
  int steps = 0;
  while (editor.Undo()) ++steps;
  EXPECT_EQ(steps, 3);
}

}  // namespace
}  // namespace zek
