#include "forecast/MomentText.h"

#include <cstddef>

#include "formats/ExceptionCells.h"

namespace zek {
namespace {

constexpr std::size_t kDateLength = 10;  // "2026-12-07"

// Returns the number in some columns; nothing if not all of them are digits.
std::optional<int> DigitsAt(std::string_view text, std::size_t column, std::size_t width) {
  const std::string_view digits = FromColumn(text, column).substr(0, width);
  if (digits.size() < width || digits.find_first_not_of("0123456789") != std::string_view::npos) {
    return std::nullopt;
  }
  return static_cast<int>(NumberAt(text, column, width));
}

}  // namespace

Moment MomentOf(const LocalTime& time) {
  return DateMoment(time.year, time.month, time.day) + TimeMoment(time.hour, time.minute);
}

DayNumber DayOf(const LocalTime& time) { return DayOf(MomentOf(time)); }

std::string MomentText(Moment moment) {
  return DateText(moment) + "T" + ClockText(TimeOfDay(moment));
}

std::optional<DayNumber> ParseDay(std::string_view text) {
  const auto year = DigitsAt(text, 0, 4);
  const auto month = DigitsAt(text, 5, 2);
  const auto day = DigitsAt(text, 8, 2);
  if (!year || !month || !day) return std::nullopt;
  const Moment date = DateMoment(*year, *month, *day);
  // A date that does not exist, or other marks than "-", reads back as another text.
  return DateText(date) == text ? std::optional(DayOf(date)) : std::nullopt;
}

std::optional<Moment> ParseMoment(std::string_view text) {
  const std::optional<DayNumber> day = ParseDay(text.substr(0, kDateLength));
  const auto hours = DigitsAt(text, kDateLength + 1, 2);
  const auto minutes = DigitsAt(text, kDateLength + 4, 2);
  if (!day || !hours || !minutes) return std::nullopt;
  const Moment moment = StartOf(*day) + TimeMoment(*hours, *minutes);
  return MomentText(moment) == text ? std::optional(moment) : std::nullopt;
}

std::string ValueText(MaybeValue value, char decimalSeparator) {
  return value ? FormatNumber(*value, decimalSeparator) : "-";
}

}  // namespace zek
