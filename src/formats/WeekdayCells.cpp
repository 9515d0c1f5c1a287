#include "formats/WeekdayCells.h"

#include <algorithm>

#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr double kHoursRefused = 25;
constexpr double kMinutesRefused = 2000;

std::optional<std::int16_t> TimeOf(double hours, double minutes) {
  if (hours >= kHoursRefused || minutes >= kMinutesRefused) {
    return std::nullopt;
  }
  return ToInt16(std::min(hours * 60 + minutes, double{kMinutesOfDay}));
}

bool IsDigits(std::string_view text) {
  return !text.empty() && text.find_first_not_of("0123456789") == std::string_view::npos;
}

std::optional<std::int16_t> TimeWithoutSeparator(std::string_view digits) {
  if (!IsDigits(digits) || digits.size() > 4) return std::nullopt;
  if (digits.size() <= 2) return TimeOf(Val(digits), 0);
  const std::size_t hours = digits.size() - 2;
  const double minutes = Val(digits.substr(hours));
  if (minutes >= 60) return std::nullopt;
  return TimeOf(Val(digits.substr(0, hours)), minutes);
}

}  // namespace

std::string TimeText(std::int16_t minutes) {
  return minutes == kNoTime ? std::string() : ClockText(minutes);
}

std::string ValueOnText(const WeekdayRow& row, char decimalSeparator) {
  if (!row.Used() && row.valueOn == 0) return {};
  return FormatNumber(row.valueOn, decimalSeparator);
}

std::string ValueOffText(const WeekdayRow& row, char decimalSeparator) {
  return BoxValue(row.valueOff, decimalSeparator);
}

std::optional<std::int16_t> TypedTime(std::string_view text) {
  text = Trim(text);
  if (text.empty()) return kNoTime;
  const std::size_t separator = text.find_first_of(".:,");
  if (separator == std::string_view::npos) return TimeWithoutSeparator(text);
  const std::string_view hours = Trim(text.substr(0, separator));
  const std::string_view minutes = Trim(text.substr(separator + 1));
  if (!IsDigits(hours) || !IsDigits(minutes)) return std::nullopt;
  return TimeOf(Val(hours), Val(minutes));
}

}  // namespace zek
