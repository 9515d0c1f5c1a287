#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "lang/Messages.h"
#include "settings/CommandLine.h"
#include "settings/Profile.h"
#include "system/Prompts.h"

namespace zek {

/// The interval of `Timer_Comm`, which counts down all countdowns.
inline constexpr int kTickMilliseconds = 200;
inline constexpr int kTicksPerSecond = 1000 / kTickMilliseconds;
/// The longest time that fits in a 16-bit countdown.
inline constexpr int kLongestWaitSeconds = 32767 / kTicksPerSecond;

/// The command line and ZEKView.INI as read at start-up; constant while the program runs.
struct Settings {
  std::string ProgramPath;  // UTF-8, ends in the system's separator
  std::string IniPath;      // the same; the directory of ZEKView.INI
  std::string ShippedPath;  // the same; languages that `ProgramPath` lacks, or "": nowhere else
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
  std::int32_t DisconnectDelay = 0;      // seconds, when closing a TCP/IP connection
  std::int16_t ConnectDelayTime = 0;     // seconds, after opening a tag
  std::int16_t DisconnectDelayTime = 0;  // seconds, before closing a tag
  bool HideDialogOnTSC = true;
  bool PreventMinimize = false;
  bool AlwaysUseLocal = true;
  bool AlwaysUseDSS = true;
  bool LogCommands = false;               // the log shows the commands that are sent, too
  bool Demo = false;                      // the plant is a simulated one, see `--demo`
  bool VerifyAfterWrite = false;          // after sending, fetch again and compare
  std::int16_t DialogMode = 0;            // 0 not set, 1 "DEFAULT", 2 "ALL"
  std::int16_t SDCLastTwoDigitYear = 20;  // calendar: two digits up to this mean 20xx
  std::int16_t SDCLastYear = 2030;        // the calendar's last year of four digits
  bool SwedishHolidays = false;           // "Holidays": the calendar marks those of Sweden
  std::int16_t HistoryCount = 50;         // earlier local copies kept of each catalogue; 0: none
  std::string SessionFile;                // name of the log's file, see `SessionFile`; "": none
  std::int16_t SessionFileCount = 30;     // such files kept, one a day; 0: all
  char DecimalSeparator = '.';            // of printed values
};

/// Returns `IniPath`: from `--ini`, else from "/INI:", else the program directory.
std::string IniPathOf(const CommandLine& line, const std::string& programPath);

/// Reads switches and settings in start-up order; returns false, after a message, if one does not
/// fit 16 bits. Values below their minimum are reported (texts 59 and 60) and raised to it.
bool LoadSettings(Settings& settings, std::string_view commandLine, const Profile& profile,
                  const LanguageTexts& texts, Prompts& prompts);

/// Reads settings that are whole numbers (rounded half to even). If a value is larger than allowed
/// or does not fit 16 bits, shows a message with section, key, value and the largest (or smallest)
/// allowed value and returns nothing.
struct NumberReader {
  const Profile& profile;
  Messages messages;

  std::optional<std::int16_t> Read(std::string_view section, std::string_view key,
                                   std::string_view fallback, int largest = kLargestNumber) const;

  /// The same for seconds, limited to those that fit in a countdown.
  std::optional<std::int16_t> ReadSeconds(std::string_view section, std::string_view key,
                                          std::string_view fallback) const {
    return Read(section, key, fallback, kLongestWaitSeconds);
  }

  static constexpr int kLargestNumber = 32767;    // 16 bits
  static constexpr int kSmallestNumber = -32768;  // likewise
};

}  // namespace zek
