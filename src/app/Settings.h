#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "app/CommandLine.h"
#include "app/Profile.h"
#include "app/Prompts.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// One tick of `Timer_Comm`, and with it of every countdown.
inline constexpr int kTickMilliseconds = 200;
inline constexpr int kTicksPerSecond = 1000 / kTickMilliseconds;
/// The longest time that a 16-bit countdown holds.
inline constexpr int kLongestWaitSeconds = 32767 / kTicksPerSecond;

/// What start-up reads from the command line and ZEKView.INI; fixed for the life of the process.
struct Settings {
  std::string ProgramPath;  // ends in "/" (or "\"), the system's encoding
  std::string IniPath;      // the same; holds ZEKView.INI
  bool LocalMode = false;   // "/LOCAL": no controller traffic
  bool BatchMode = false;   // "/BATCH"
  bool AlwaysOnTop = false;
  bool ViewOnly = false;             // "/VIEWONLY"
  std::int16_t TopicComboIndex = 0;  // 0: the topic list is sorted; 1: in file order
  bool TagMode = false;              // controllers are reached through the tag object
  std::string StartTopic;            // "/TOPIC:" or "/TAG:"
  std::string StartDialog;           // "/DIALOG:"
  std::int16_t DisconnectTicks = 0;
  std::int16_t GetTSCTimeoutTicks = 0;
  std::int32_t DisconnectDelay = 0;      // seconds, when a TCP/IP connection is closed
  std::int16_t ConnectDelayTime = 0;     // seconds, after a tag was opened
  std::int16_t DisconnectDelayTime = 0;  // seconds, before a tag is closed
  bool HideDialogOnTSC = true;
  bool PreventMinimize = false;
  bool AlwaysUseLocal = true;
  bool AlwaysUseDSS = true;
  std::int16_t DialogMode = 0;  // 0 not set, 1 "DEFAULT", 2 "ALL"
  char DecimalSeparator = '.';  // of printed values
};

/// `directory` with the system's separator at its end.
std::string WithSeparator(std::string directory);

/// `IniPath`: `--ini`, or else "/INI:", or else the program directory.
std::string IniPathOf(const CommandLine& line, const std::string& programPath);

/// Reads switches and settings in the order of the start-up sequence, telling of values below
/// their minimum (texts 59 and 60). False when a value does not fit 16 bits: that was told, and
/// the program ends.
bool LoadSettings(Settings& settings, std::string_view commandLine, const Profile& profile,
                  const LanguageTexts& texts, Prompts& prompts);

/// A setting in whole seconds (rounded half to even) that a countdown can hold. A larger one
/// shows a message with section, key, value and the largest allowed value, and gives nothing.
std::optional<std::int16_t> ReadSeconds(const Profile& profile, const LanguageTexts& texts,
                                        Prompts& prompts, std::string_view section,
                                        std::string_view key, std::string_view fallback);

}  // namespace zek
