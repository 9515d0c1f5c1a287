#include "formats/ExceptionCells.h"

#include "formats/CatalogueDate.h"

namespace zek {
namespace {

constexpr double kLargestYear = 9999;

bool IsBetween(double number, double least, double most) {
  return number >= least && number <= most;
}

}  // namespace

std::string DateText(Moment moment) {
  const DateParts date = DateOf(moment);
  return IsoDate(date.year, date.month, date.day);
}

ExceptionTexts TextsOf(const OvcRow& row, char decimalSeparator) {
  if (!row.used) return {};
  return {{DateText(row.start), ClockText(TimeOfDay(row.start)),
           BoxValue(row.valueOn, decimalSeparator),
           row.HasStopDate() ? DateText(row.stop) : std::string(),
           row.stop == 0 ? std::string() : ClockText(row.StopTime()),
           BoxValue(row.valueOff, decimalSeparator)}};
}

std::optional<Moment> TypedExceptionDate(std::string_view text) {
  text = Trim(text);
  const bool dashes = text.find('-') != std::string_view::npos;
  const double year = NumberAt(text, 0, 4);
  const double month = NumberAt(text, dashes ? 5 : 4, 2);
  const double day = NumberAt(text, dashes ? 8 : 6, 2);
  const bool yearFits = IsBetween(year, 0, 20) || IsBetween(year, 90, kLargestYear);
  if (!yearFits || !IsBetween(month, 1, 12) || !IsBetween(day, 1, 31)) return std::nullopt;
  return DateMoment(year, month, day);
}

std::optional<Moment> TypedExceptionTime(std::string_view text) {
  constexpr std::size_t digits = 2;
  text = Trim(text);
  const std::size_t colon = text.find(':');
  const bool together = colon == std::string_view::npos;
  const std::string_view hours = text.substr(0, together ? digits : colon);
  const std::string_view minutes = FromColumn(text, together ? digits : colon + 1);
  const auto fits = [](std::string_view part, double most) {
    return part.size() <= digits &&
           part.find_first_not_of("0123456789") == std::string_view::npos && Val(part) <= most;
  };
  if (!fits(hours, 24) || !fits(minutes, 59)) return std::nullopt;
  return TimeMoment(Val(hours), Val(minutes));
}

}  // namespace zek
