#include "editors/weekday/WeekdayCells.h"

#include <algorithm>

#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr double kHoursRefused = 25;
constexpr double kMinutesRefused = 2000;

std::optional<std::int16_t> TimeOf(double hours, double minutes) {
  if (hours < 0 || hours >= kHoursRefused || minutes < 0 || minutes >= kMinutesRefused) {
    return std::nullopt;
  }
  return ToInt16(std::min(hours * 60 + minutes, double{kLatestTime}));
}

std::optional<std::int16_t> TimeWithoutSeparator(std::string_view digits) {
  if (digits.size() > 4 || digits.find_first_not_of("0123456789") != std::string_view::npos) {
    return std::nullopt;
  }
  if (digits.size() <= 2) return TimeOf(Val(digits), 0);
  const std::size_t hours = digits.size() - 2;
  return TimeOf(Val(digits.substr(0, hours)), Val(digits.substr(hours)));
}

}  // namespace

void WriteTime(std::int16_t minutes, char* at) {
  const auto digit = [](int value) { return static_cast<char>('0' + value % 10); };
  const int hours = minutes / 60;
  const int rest = minutes % 60;
  at[0] = digit(hours / 10);
  at[1] = digit(hours);
  at[2] = ':';
  at[3] = digit(rest / 10);
  at[4] = digit(rest);
}

std::string TimeText(std::int16_t minutes) {
  if (minutes == kNoTime) return {};
  std::string text(kTimeLength, ' ');
  WriteTime(minutes, text.data());
  return text;
}

std::string ValueOnText(const WeekdayRow& row, char decimalSeparator) {
  if (!row.Used() && row.valueOn == 0) return {};
  return FormatNumber(row.valueOn, decimalSeparator);
}

std::string ValueOffText(const WeekdayRow& row, char decimalSeparator) {
  if (row.valueOff == kNoValue) return {};
  return FormatNumber(row.valueOff, decimalSeparator);
}

std::optional<std::int16_t> TypedTime(std::string_view text) {
  text = Trim(text);
  if (text.empty()) return kNoTime;
  const std::size_t separator = text.find_first_of(".:,");
  if (separator == std::string_view::npos) return TimeWithoutSeparator(text);
  return TimeOf(Val(text.substr(0, separator)), Val(text.substr(separator + 1)));
}

float TypedValueOn(std::string_view text) { return ToSingle(ParseNumber(text)); }

float TypedValueOff(std::string_view text) {
  text = Trim(text);
  if (text.empty() || text == "." || text == ",") return kNoValue;
  return ToSingle(ParseNumber(text));
}

}  // namespace zek
