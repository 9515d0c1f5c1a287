#include "settings/Settings.h"

#include <algorithm>
#include <cmath>

#include "lang/TextNumbers.h"
#include "system/Paths.h"
#include "text/Fields.h"
#include "text/Numbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr std::string_view kGeneral = "general";
constexpr int kShortestDisconnectTime = 60;  // seconds
constexpr int kShortestGetTSCTimeout = 5;    // seconds
constexpr int kLastTwoDigitYear = 93;        // 94 to 99 mean 1994 to 1999
constexpr int kLastYear = 9999;              // four digits
constexpr int kLargestHistory = 9999;        // copies per catalogue
constexpr int kLargestSessionCount = 9999;   // files of the log

std::int16_t ReadDialogMode(const Profile& profile) {
  const std::string mode = UpperCase(profile.ReadIni(kGeneral, "DialogMode", "1"));
  if (mode == "ALL") return 2;
  return mode == "DEFAULT" ? 1 : 0;
}

// Reads the numeric settings at start-up. Stops, after a message, at the first that does not fit.
class StartNumbers {
 public:
  explicit StartNumbers(const NumberReader& reader) : reader_(reader) {}

  bool Ok() const { return ok_; }

  std::int16_t Seconds(std::string_view key) { return Number(key, "0", kLongestWaitSeconds); }

  std::int16_t Number(std::string_view key, std::string_view fallback, int largest) {
    if (!ok_) return 0;
    const auto number = reader_.Read(kGeneral, key, fallback, largest);
    ok_ = number.has_value();
    return number.value_or(0);
  }

  // For text that is no number from 0 up, reports it and returns the default.
  std::int16_t CountFromZero(std::string_view key, std::string_view fallback, int largest) {
    const std::string value = reader_.profile.ReadIni(kGeneral, key, fallback);
    const double number = Val(value);
    if (!ok_ || number > 0 || (number == 0 && IsNumeric(value))) {
      return Number(key, fallback, largest);
    }
    reader_.messages.Tell(Icon::Exclamation, text::kSettingUnreadable,
                          {kGeneral, key, value, fallback});
    return ToInt16(Val(fallback)).value_or(0);
  }

  // Converts seconds to ticks; for a value below `least` shows text `tooLow` and uses `least`.
  std::int16_t Ticks(std::string_view key, int least, std::int32_t tooLow) {
    int seconds = Seconds(key);
    if (ok_ && seconds < least) {
      reader_.messages.Tell(Icon::None, tooLow);
      seconds = least;
    }
    return static_cast<std::int16_t>(seconds * kTicksPerSecond);
  }

 private:
  const NumberReader& reader_;
  bool ok_ = true;
};

}  // namespace

std::string IniPathOf(const CommandLine& line, const std::string& programPath) {
  if (line.ini) return WithSeparator(*line.ini);
  const std::string value = SwitchValue(line.text, "/INI:");
  return value.empty() ? programPath : WithSeparator(Utf8FromWindows1252(value));
}

bool LoadSettings(Settings& settings, std::string_view commandLine, const Profile& profile,
                  const LanguageTexts& texts, Prompts& prompts) {
  settings.LocalMode = HasSwitch(commandLine, "/LOCAL");
  settings.BatchMode = HasSwitch(commandLine, "/BATCH");
  settings.AlwaysOnTop =
      HasSwitch(commandLine, "/ALWAYSONTOP") || ReadYesNo(profile, "General", "AlwaysOnTop", "no");
  settings.ViewOnly = HasSwitch(commandLine, "/VIEWONLY");
  settings.TopicComboIndex = ReadYesNo(profile, "General", "SortTopics", "yes") ? 0 : 1;
  settings.TagMode = !settings.LocalMode && ReadYesNo(profile, "General", "TagMode", "no");
  settings.StartTopic = SwitchValue(commandLine, "/TOPIC:");
  const std::string tag = SwitchValue(commandLine, "/TAG:");
  if (!tag.empty()) settings.StartTopic = tag;
  settings.StartDialog = SwitchValue(commandLine, "/DIALOG:");

  const NumberReader reader{profile, {texts, prompts}};
  StartNumbers numbers(reader);
  settings.DisconnectTicks =
      numbers.Ticks("DisconnectTime", kShortestDisconnectTime, text::kDisconnectTimeLow);
  const double closing = Val(profile.ReadIni(kGeneral, "DisconnectDelay", "0"));
  settings.DisconnectDelay =
      static_cast<std::int32_t>(std::nearbyint(std::clamp(closing, -2147483648.0, 2147483647.0)));
  settings.ConnectDelayTime = numbers.Seconds("ConnectDelayTime");
  settings.DisconnectDelayTime = numbers.Seconds("DisconnectDelayTime");
  settings.GetTSCTimeoutTicks =
      numbers.Ticks("GetTSCTimeout", kShortestGetTSCTimeout, text::kGetTSCTimeoutLow);

  // The settings can only raise these limits.
  const Settings builtIn;
  settings.SDCLastTwoDigitYear = std::max(
      builtIn.SDCLastTwoDigitYear, numbers.Number("SDCLastTwoDigitYear", "20", kLastTwoDigitYear));
  settings.SDCLastYear =
      std::max(builtIn.SDCLastYear, numbers.Number("SDCLastYear", "2030", kLastYear));
  settings.HistoryCount = numbers.CountFromZero("HistoryCount", "50", kLargestHistory);
  settings.SessionFile = profile.ReadIni(kGeneral, "SessionFile", "");
  settings.SessionFileCount = numbers.CountFromZero("SessionFileCount", "30", kLargestSessionCount);

  settings.HideDialogOnTSC = ReadYesNo(profile, kGeneral, "HideDialogOnTSC", "yes");
  settings.PreventMinimize = ReadYesNo(profile, kGeneral, "PreventMinimize", "no");
  settings.AlwaysUseLocal = ReadYesNo(profile, kGeneral, "AlwaysUseLocal", "yes");
  settings.AlwaysUseDSS = ReadYesNo(profile, kGeneral, "AlwaysUseDSS", "yes");
  settings.SwedishHolidays = EqualNoCase(profile.ReadIni(kGeneral, "Holidays", ""), "SE");
  settings.VerifyAfterWrite = ReadYesNo(profile, kGeneral, "VerifyAfterWrite", "no");
  settings.LogCommands = ReadYesNo(profile, kGeneral, "LogCommands", "no");
  settings.DialogMode = ReadDialogMode(profile);
  return numbers.Ok();
}

std::optional<std::int16_t> NumberReader::Read(std::string_view section, std::string_view key,
                                               std::string_view fallback, int largest) const {
  const std::string value = profile.ReadIni(section, key, fallback);
  const std::optional<std::int16_t> number = ToInt16(Val(value));
  if (number && *number <= largest) return number;
  const bool small = Val(value) < 0;
  messages.Tell(Icon::Exclamation, small ? text::kSettingTooSmall : text::kSettingTooLarge,
                {section, key, value, std::to_string(small ? kSmallestNumber : largest)});
  return std::nullopt;
}

}  // namespace zek
