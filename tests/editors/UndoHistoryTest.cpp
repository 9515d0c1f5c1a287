#include <gtest/gtest.h>
#include <random>

#include "editors/EditorPlayers.h"
#include "editors/UndoHistory.h"

namespace zek {
namespace {

// A change to an equivalent value (here: the same last digit) is not a step and is not lost.
struct SameDigit {
  bool operator()(int one, int other) const { return one % 10 == other % 10; }
};

TEST(UndoHistory, WhatMeansTheSameIsNoStepAndIsNotLost) {
  UndoHistory<int, int, SameDigit> history{1};
  const auto set = [&history](int value) {
    history.Change(0, [value](int& table) { table = value; });
  };
  set(11);
  EXPECT_EQ(history.State(), EditState{});
  set(12);
  history.Undo();
  EXPECT_EQ(history.Now(), 11);
  set(21);  // discards the undone step
  history.Redo();
  EXPECT_EQ(history.Now(), 12);
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

// An editor with a catalogue, and the possible words at each place of its commands.
struct Weekday {
  using Player = test::WeekdayPlayer;
  static constexpr std::equal_to<WeekdayTable> same{};
  inline static const test::FormatCase given{
      "T", {"= 1000 !T           !MO..WE       !07:00..16:30             !21       !17"}};
  inline static const std::vector<std::vector<std::string>> commands = {
      {"enter", "enter", "enter", "enter", "copy", "erase", "type", "row", "column"},
      {"0", "1"},
      {"start=", "stop=", "on=", "off=", "start=7", "start=07:00", "stop=16:30", "stop=25:00",
       "on=0", "on=21.5", "on=-3", "off=1e9", "off=."}};
};
struct Exceptions {
  using Player = test::ExceptionPlayer;
  static constexpr SameExceptions same{};
  inline static const test::FormatCase given{
      "T", {"=    1 !T           !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16"}};
  inline static const std::vector<std::vector<std::string>> commands = {
      {"enter", "enter", "enter", "row", "erase"},
      {"0", "1", "2", "3", "4", "5", "6", "7"},
      {"date=", "date=2026-12-24", "start=0800", "start=x", "on=21", "on=", "until=20261231",
       "until=", "stop=24:00", "stop=", "off=.", "off=21"}};
};
struct Calendar {
  using Player = test::CalendarPlayer;
  static constexpr SameCalendar same{};
  inline static const test::FormatCase given{
      "T",
      {"= 1000 !24-DEC-26..26-DEC-26                                !SD1",
       "= 1001 !01-JAN-27                                           !SD2"}};
  inline static const std::vector<std::vector<std::string>> commands = {
      {"press", "release", "apply", "apply", "type 0", "type 8", "type 9", "step 1", "step -1"},
      {"1", "2", "3", "7", "12", "18", "24", "25", "26", "28"}};
};

template <class Case>
class EditorUndo : public testing::Test {
 protected:
  std::size_t Any(std::size_t count) { return random_() % count; }
  std::string AnyCommand() {
    std::string command;
    for (const auto& words : Case::commands) command += words[Any(words.size())] + " ";
    return command;
  }

 private:
  std::mt19937 random_{20261121};
};

using Editors = testing::Types<Weekday, Exceptions, Calendar>;
TYPED_TEST_SUITE(EditorUndo, Editors, );

// Compares random edits, undos and redos with a list of all earlier tables.
TYPED_TEST(EditorUndo, AnyWayBackAndForthGivesTheSameTables) {
  constexpr int sessions = 40;
  for (int session = 0; session < sessions; ++session) {
    typename TypeParam::Player player(TypeParam::given);
    std::vector tables{player.Table()};
    std::size_t at = 0;
    std::size_t changes = 0;
    const auto play = [&](const std::string& command) {
      player.Play(command);
      if (command == "undo") at -= at > 0 ? 1 : 0;
      if (command == "redo") at += at + 1 < tables.size() ? 1 : 0;
      if (!TypeParam::same(player.Table(), tables[at])) {
        EXPECT_TRUE(command != "undo" && command != "redo");
        tables.erase(tables.begin() + static_cast<std::ptrdiff_t>(at) + 1, tables.end());
        tables.push_back(player.Table());
        ++at;
        ++changes;
      }
      const bool changed = !TypeParam::same(tables[at], tables[0]);
      EXPECT_EQ(player.State(), (EditState{changed, at > 0, at + 1 < tables.size()})) << command;
    };
    for (int i = 0; i < 200; ++i) {
      const std::size_t what = this->Any(10);
      play(what == 0 ? "undo" : what == 1 ? "redo" : this->AnyCommand());
    }
    EXPECT_GT(changes, 10U);
    for (const char* const way : {"undo", "redo"})
      for (std::size_t steps = 0; steps < tables.size(); ++steps) play(way);
    EXPECT_EQ(at + 1, tables.size());
  }
}

}  // namespace
}  // namespace zek
