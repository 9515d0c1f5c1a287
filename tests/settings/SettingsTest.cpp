#include <filesystem>
#include <gtest/gtest.h>

#include "settings/CommandLine.h"
#include "settings/Settings.h"
#include "support/TestSession.h"
#include "system/Paths.h"

namespace zek {
namespace {

using Shown = std::vector<std::string>;

// Starts with that settings file and command line.
struct Started {
  Settings settings;
  Shown shown;
  bool ok = false;
};

Started Start(const std::string& ini, std::string_view commandLine = "") {
  test::TestSession session;
  session.files.files["/ini/ZEKView.INI"] = ini;
  session.prompts.shown.clear();
  Started started;
  started.ok = LoadSettings(started.settings, commandLine, session.profile, session.proc.texts,
                            session.prompts);
  started.shown = session.prompts.shown;
  return started;
}

TEST(Settings, WithoutAFileTheMinimaHoldAndAreTold) {
  const Started started = Start("");
  EXPECT_TRUE(started.ok);
  EXPECT_EQ(started.shown, (Shown{"n T59", "n T60"}));
  EXPECT_EQ(started.settings.DisconnectTicks, 300);
  EXPECT_EQ(started.settings.GetTSCTimeoutTicks, 25);
  EXPECT_TRUE(started.settings.AlwaysUseDSS);
  EXPECT_TRUE(started.settings.AlwaysUseLocal);
  EXPECT_FALSE(started.settings.VerifyAfterWrite);
  EXPECT_TRUE(started.settings.HideDialogOnTSC);
  EXPECT_FALSE(started.settings.PreventMinimize);
  EXPECT_EQ(started.settings.DialogMode, 0);
  EXPECT_EQ(started.settings.TopicComboIndex, 0);
}

TEST(Settings, NumbersHaveLimits) {
  using Number = std::int16_t Settings::*;
  const struct {
    const char* entry = "";
    Number number = nullptr;
    std::int16_t value = 0;  // 0: start-up ends
    const char* shown = "";
  } cases[] = {
      {"DisconnectTime=59", &Settings::DisconnectTicks, 300, "n T59"},
      {"DisconnectTime=60", &Settings::DisconnectTicks, 300},
      {"DisconnectTime=61", &Settings::DisconnectTicks, 305},
      {"DisconnectTime=6553", &Settings::DisconnectTicks, 32765},
      {"DisconnectTime=6554", &Settings::DisconnectTicks, 0, "x T500"},
      {"DisconnectTime=-1e9", &Settings::DisconnectTicks, 0, "x T850"},
      {"GetTSCTimeout=4", &Settings::GetTSCTimeoutTicks, 25, "n T60"},
      {"GetTSCTimeout=5", &Settings::GetTSCTimeoutTicks, 25},
      {"GetTSCTimeout=5.5", &Settings::GetTSCTimeoutTicks, 30},
      {"GetTSCTimeout=1e9", &Settings::GetTSCTimeoutTicks, 0, "x T500"},
      {"SDCLastTwoDigitYear=19", &Settings::SDCLastTwoDigitYear, 20},
      {"SDCLastTwoDigitYear=21", &Settings::SDCLastTwoDigitYear, 21},
      {"SDCLastTwoDigitYear=93", &Settings::SDCLastTwoDigitYear, 93},
      {"SDCLastTwoDigitYear=94", &Settings::SDCLastTwoDigitYear, 0, "x T500"},
      {"HistoryCount=", &Settings::HistoryCount, 50, "x T851"},
      {"HistoryCount=ja", &Settings::HistoryCount, 50, "x T851"},
      {"HistoryCount=-1", &Settings::HistoryCount, 50, "x T851"},
      {"HistoryCount=7 st", &Settings::HistoryCount, 7},
      {"HistoryCount=10000", &Settings::HistoryCount, 0, "x T500"},
      {"SessionFileCount=x", &Settings::SessionFileCount, 30, "x T851"},
      {"SDCLastYear=2029", &Settings::SDCLastYear, 2030},
      {"SDCLastYear=2031", &Settings::SDCLastYear, 2031},
      {"SDCLastYear=9999", &Settings::SDCLastYear, 9999},
      {"SDCLastYear=10000", &Settings::SDCLastYear, 0, "x T500"},
  };
  for (const auto& each : cases) {  // the first of two entries counts
    const Started started =
        Start(std::string("[general]\n") + each.entry + "\nDisconnectTime=60\nGetTSCTimeout=5\n");
    EXPECT_EQ(started.ok, each.value != 0) << each.entry;
    EXPECT_TRUE(!started.ok || started.settings.*each.number == each.value) << each.entry;
    EXPECT_EQ(started.shown, *each.shown == '\0' ? Shown{} : Shown{each.shown}) << each.entry;
  }
}

TEST(Settings, YesIsOnlyYes) {
  const char* const times = "DisconnectTime=60\nGetTSCTimeout=5\n";
  const struct {
    const char* key;
    bool Settings::*flag;
  } flags[] = {{"AlwaysOnTop", &Settings::AlwaysOnTop},
               {"HideDialogOnTSC", &Settings::HideDialogOnTSC},
               {"PreventMinimize", &Settings::PreventMinimize},
               {"AlwaysUseLocal", &Settings::AlwaysUseLocal},
               {"AlwaysUseDSS", &Settings::AlwaysUseDSS},
               {"VerifyAfterWrite", &Settings::VerifyAfterWrite},
               {"LogCommands", &Settings::LogCommands}};
  for (const auto& each : flags) {
    for (const auto& [value, yes] : {std::pair("Yes", true), {"no", false}, {"1", false}}) {
      const Started started =
          Start(std::string("[general]\n") + each.key + "=" + value + "\n" + times);
      EXPECT_EQ(started.settings.*each.flag, yes) << each.key << value;
    }
  }
  EXPECT_EQ(Start(std::string("[general]\nSortTopics=ja\n") + times).settings.TopicComboIndex, 1);
  EXPECT_EQ(Start(std::string("[general]\nDialogMode=all\n") + times).settings.DialogMode, 2);
  EXPECT_EQ(Start(std::string("[general]\nDialogMode=Alla\n") + times).settings.DialogMode, 0);
  EXPECT_TRUE(Start(std::string("[general]\nTagMode=YES\n") + times).settings.TagMode);
  EXPECT_FALSE(Start(std::string("[general]\nTagMode=YES\n") + times, "/local").settings.TagMode);
}

TEST(Settings, SwitchesAreFoundAnywhereInAnyCase) {
  const Settings settings =
      Start("", "x/LocalX /viewonly /TOPIC:ahu1/x /dialog:tv\xE5 /TAG:  /BATCHES").settings;
  EXPECT_TRUE(settings.LocalMode);
  EXPECT_TRUE(settings.ViewOnly);
  EXPECT_TRUE(settings.BatchMode);
  EXPECT_FALSE(settings.AlwaysOnTop);
  EXPECT_EQ(settings.StartTopic, "AHU1");
  EXPECT_EQ(settings.StartDialog, "TV\xC5");
  EXPECT_EQ(Start("", "/TAG:b /TOPIC:a").settings.StartTopic, "B");
}

TEST(CommandLine, OptionsAreTakenOutBeforeTheSwitches) {
  const CommandLine line =
      ParseCommandLine({"/LOCAL", "--dir", "/srv/LOCAL/batch", "x", "--ini", "/etc/\xC3\xA5"});
  EXPECT_EQ(line.text + line.error, "/LOCAL x");
  EXPECT_EQ(line.dir, "/srv/LOCAL/batch");
  const auto separator = static_cast<char>(std::filesystem::path::preferred_separator);
  EXPECT_EQ(IniPathOf(line, "/p/"), std::string("/etc/\xC3\xA5") + separator);
  EXPECT_EQ(IniPathOf(ParseCommandLine({"/ini:c:\\data"}), "/p/"),
            std::string("C:\\DATA") + separator);
  EXPECT_EQ(IniPathOf(ParseCommandLine({}), "/p/"), "/p/");
  EXPECT_EQ(WithSeparator("c:/data/"), "c:/data/");
  EXPECT_NE(ParseCommandLine({"--help"}).help.find("/BATCH"), std::string::npos);
  EXPECT_TRUE(ParseCommandLine({"--dir"}).error.starts_with("--dir"));
  EXPECT_NE(ParseCommandLine({"/LOCAL", "--help"}).help, "");
}

}  // namespace
}  // namespace zek
