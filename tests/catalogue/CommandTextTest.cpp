#include <gtest/gtest.h>

#include "catalogue/CommandText.h"
#include "support/TransferSession.h"

namespace zek {
namespace {

using namespace std::string_literals;
const std::string kLine = " 1000 !AHU1        !MO";

TEST(CommandText, OnlyACatalogueLineIsOne) {
  for (const std::string& line : {kLine, "1 24-DEC-26!SD1"s, " 701  MO..FR   !07:00 !21 \xFF"s}) {
    EXPECT_TRUE(IsCatalogueLine(line)) << line;
  }
  for (const std::string& line :
       {"EXIT"s, ".OVC"s, "AHU2.DFV=0"s, "7.WDC"s, "7.DFV=1!"s, ""s, "0 !x"s, "-1 !x"s, "A!1"s,
        kLine + "\rEXIT", kLine + "\n", kLine + "\x05", kLine + "\0"s, "\x02" + kLine}) {
    EXPECT_FALSE(IsCatalogueLine(line)) << testing::PrintToString(line);
  }
}

TEST(CommandText, WhatTheDdeServerTurnsIntoAnotherCommandStaysOut) {
  for (const char* text : {"{13}", "{65}x", "a{1}", "{{13}"}) {
    EXPECT_FALSE(StaysOneCommand(text, true)) << text;
    EXPECT_TRUE(StaysOneCommand(text, false)) << text;
  }
  for (const char* text : {"{}", "{A1}", "{13", "13}", "{1 3}"}) {
    EXPECT_TRUE(StaysOneCommand(text, true)) << text;
  }
}

// What a local copy, a controller or the settings can bring, and how it is told.
struct HostileCase {
  const char* name;
  std::vector<std::string> lines;
  std::string value;
  std::string control;
  bool dde;
  const char* told;
};

TEST(CommandText, NothingOfAHostileCatalogueIsSent) {
  const HostileCase cases[] = {
      {"a command between lines",
       {kLine, "", "EXIT", ".OVC", kLine},
       "21",
       "AHU1",
       false,
       "x T730"},
      {"a return within a line", {kLine + "\rEXIT"}, "21", "AHU1", false, "x T730"},
      {"a line without its return", {kLine + "\x05"}, "21", "AHU1", false, "x T730"},
      {"an escape of the DDE server", {kLine + "{13}EXIT"}, "21", "AHU1", true, "x T730"},
      {"a return within the value", {kLine}, "21\rAHU2.DFV=0", "AHU1", false, "x T731"},
      {"an escape within the value", {kLine}, "{13}AHU2.DFV=0", "AHU1", true, "x T731"},
      {"a return within the name", {kLine}, "21", "AHU1\rEXIT", false, "x T731"},
  };
  for (const HostileCase& each : cases) {
    test::TransferSession session;
    session.Select(each.dde ? "LOC" : "TWO/TSC1");
    session.proc.selection.generation = Generation::Zek2;  // it has a value
    session.proc.selection.LocalFiles.WDC = "copy.TXT";
    session.proc.selection.TscName = each.control;
    session.prompts.answers = {true, true};
    EXPECT_FALSE(session.Save(each.lines, Catalogue::Wdc, each.value)) << each.name;
    EXPECT_EQ(session.prompts.shown.back(), each.told) << each.name;
    EXPECT_TRUE(session.socket.opened.empty() && session.dde.opened.empty()) << each.name;
  }
}

TEST(CommandText, AnEscapeIsOneForTheDdeServerOnly) {
  test::TransferSession session;
  for (const auto& [node, tagMode, sendable] :
       {std::tuple("ONE", false, true), {"LOC", true, true}, {"LOC", false, false}}) {
    session.Select(node);
    session.proc.settings.TagMode = tagMode;
    EXPECT_EQ(session.Sendable({kLine + "{13}"}), sendable) << node << tagMode;
  }
}

TEST(CommandText, AHostileNameIsNotAskedForEither) {
  test::TransferSession session;
  session.SelectTwo();
  session.proc.selection.TscName = "TSC1\rTSC1.DFV=0";
  EXPECT_FALSE(session.Get());
  EXPECT_EQ(session.prompts.shown, std::vector<std::string>{"x T731"});
  EXPECT_TRUE(session.commands.empty());
}

}  // namespace
}  // namespace zek
