#include "formats/ExceptionCells.h"

#include "formats/CatalogueFields.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr int kLargestYear = 9999;

// Returns the number of a text that is one to `most` digits.
std::optional<int> Digits(std::string_view text, std::size_t most) {
  text = Trim(text);
  if (text.empty() || text.size() > most) return std::nullopt;
  if (text.find_first_not_of("0123456789") != std::string_view::npos) return std::nullopt;
  return static_cast<int>(Val(text));
}

struct Parts {
  std::string_view year;
  std::string_view month;
  std::string_view day;
};

std::optional<Parts> PartsOf(std::string_view text) {
  const std::size_t first = text.find('-');
  if (first == std::string_view::npos) {
    if (text.size() != 8) return std::nullopt;
    return Parts{text.substr(0, 4), text.substr(4, 2), text.substr(6)};
  }
  const std::size_t second = text.find('-', first + 1);
  if (second == std::string_view::npos) return std::nullopt;
  return Parts{text.substr(0, first), text.substr(first + 1, second - first - 1),
               text.substr(second + 1)};
}

bool IsYear(int year) { return year <= 20 || (year >= 90 && year <= kLargestYear); }

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
  const auto parts = PartsOf(Trim(text));
  if (!parts) return std::nullopt;
  const auto year = Digits(parts->year, 4);
  const auto month = Digits(parts->month, 2);
  const auto day = Digits(parts->day, 2);
  if (!year || !month || !day || !IsYear(*year)) return std::nullopt;
  const Moment date = DateMoment(*year, *month, *day);
  const DateParts exists = DateOf(date);  // a day that the month lacks became one of the next
  if (exists.month != *month || exists.day != *day) return std::nullopt;
  return date;
}

std::optional<Moment> TypedExceptionTime(std::string_view text) {
  constexpr std::size_t digits = 2;
  text = Trim(text);
  if (text.empty()) return 0;
  const std::size_t separator = text.find_first_of(":.");
  std::string_view hours = text;
  std::string_view minutes = "0";
  if (separator != std::string_view::npos) {
    hours = text.substr(0, separator);
    minutes = text.substr(separator + 1);
  } else if (text.size() > digits) {
    hours = text.substr(0, text.size() - digits);
    minutes = text.substr(hours.size());
  }
  const auto hour = Digits(hours, digits);
  const auto minute = Digits(minutes, digits);
  if (!hour || !minute || *hour > 24 || *minute > 59) return std::nullopt;
  return TimeMoment(*hour, *minute);
}

}  // namespace zek
