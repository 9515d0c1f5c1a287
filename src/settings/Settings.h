#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "lang/Messages.h"
#include "settings/CommandLine.h"
#include "settings/Profile.h"
#include "system/Prompts.h"

namespace zek {

/// One tick of `Timer_Comm`, and with it of every countdown.
inline constexpr int kTickMilliseconds = 200;
inline constexpr int kTicksPerSecond = 1000 / kTickMilliseconds;
/// The longest time that a 16-bit countdown holds.
inline constexpr int kLongestWaitSeconds = 32767 / kTicksPerSecond;

/// What start-up reads from the command line and ZEKView.INI; fixed for the life of the process.
struct Settings {
  std::string ProgramPath;  // UTF-8, ends in the system's separator
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
  bool VerifyAfterWrite = false;          // fetch what was sent again and compare
  std::int16_t DialogMode = 0;            // 0 not set, 1 "DEFAULT", 2 "ALL"
  std::int16_t SDCLastTwoDigitYear = 20;  // of the calendar: up to here two digits mean 2000 and on
  std::int16_t SDCLastYear = 2030;        // the calendar's last year of four digits
  std::int16_t HistoryCount = 50;         // earlier local copies kept of each catalogue; 0: none
  char DecimalSeparator = '.';            // of printed values
};

/// `IniPath`: `--ini`, or else "/INI:", or else the program directory.
std::string IniPathOf(const CommandLine& line, const std::string& programPath);

/// Reads switches and settings in the order of the start-up sequence, telling of values below
/// their minimum (texts 59 and 60). False when a value does not fit 16 bits: that was told, and
/// the program ends.
bool LoadSettings(Settings& settings, std::string_view commandLine, const Profile& profile,
                  const LanguageTexts& texts, Prompts& prompts);

/// Reads settings that are whole numbers (rounded half to even). What is larger than allowed, or
/// no 16-bit number, shows a message with section, key, value and the largest allowed value, and
/// gives nothing.
struct NumberReader {
  const Profile& profile;
  Messages messages;

  std::optional<std::int16_t> Read(std::string_view section, std::string_view key,
                                   std::string_view fallback, int largest = kLargestNumber) const;

  /// The same for seconds that a countdown can hold.
  std::optional<std::int16_t> ReadSeconds(std::string_view section, std::string_view key,
                                          std::string_view fallback) const {
    return Read(section, key, fallback, kLongestWaitSeconds);
  }

  static constexpr int kLargestNumber = 32767;  // 16 bits
};

}  // namespace zek
