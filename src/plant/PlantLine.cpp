#include "plant/PlantLine.h"

#include <algorithm>
#include <array>
#include <string>

#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek::sim {
namespace {

constexpr std::size_t kLineEnd = std::string_view::npos;

// Returns columns `first` to `last`, trimmed; fewer or none if the line is short.
std::string_view Columns(std::string_view line, std::size_t first, std::size_t last) {
  if (first > line.size()) return {};
  return Trim(line.substr(first - 1, last == kLineEnd ? kLineEnd : last - first + 1));
}

bool HasBars(std::string_view line, std::initializer_list<std::size_t> columns) {
  return std::all_of(columns.begin(), columns.end(), [&](std::size_t column) {
    return column <= line.size() && line[column - 1] == '!';
  });
}

bool IsDigits(std::string_view text) {
  return !text.empty() &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool HasNumber(std::string_view line) {
  return IsDigits(Columns(line, 1, 6)) && LineNumber(line) > 0;
}

// True for "HH:MM" from 00:00 to 24:00.
bool IsTime(std::string_view text) {
  if (text.size() != 5 || text[2] != ':') return false;
  if (!IsDigits(text.substr(0, 2)) || !IsDigits(text.substr(3))) return false;
  const double minutes = Val(text.substr(3));
  return minutes < 60 && Val(text.substr(0, 2)) * 60 + minutes <= 1440;
}

// Month names are those of the controllers. February has 29 days in years divisible by 4.
bool IsDate(std::string_view text, std::size_t yearDigits) {
  constexpr std::string_view months = "JAN-FEB-MAR-APR-MAY-JUN-JUL-AUG-SEP-OCT-NOV-DEC-";
  constexpr std::array<int, 12> lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (text.size() != 7 + yearDigits || text[2] != '-' || text[6] != '-') return false;
  if (!IsDigits(text.substr(0, 2)) || !IsDigits(text.substr(7))) return false;
  const std::size_t place = months.find(text.substr(3, 4));
  if (place == std::string_view::npos) return false;
  const std::size_t month = place / 4;
  const auto year = static_cast<int>(Val(text.substr(7)));
  const bool leapDay = month == 1 && year % 4 == 0;
  const double day = Val(text.substr(0, 2));
  return day >= 1 && day <= lengths.at(month) + (leapDay ? 1 : 0);
}

// One item, or two joined by "..".
template <typename Check>
bool IsOneOrTwo(std::string_view text, Check isItem) {
  const std::size_t dots = text.find("..");
  if (dots == std::string_view::npos) return isItem(text);
  return isItem(text.substr(0, dots)) && isItem(text.substr(dots + 2));
}

bool IsTimes(std::string_view text) { return IsOneOrTwo(text, IsTime); }

bool IsDates(std::string_view text, std::size_t yearDigits) {
  return IsOneOrTwo(text, [&](std::string_view date) { return IsDate(date, yearDigits); });
}

bool IsMoment(std::string_view text) {
  return text.size() == 15 && text[9] == ',' && IsDate(text.substr(0, 9), 2) &&
         IsTime(text.substr(10));
}

// 0 to 6 for MO to SU, 7 to 13 for SD1 to SD7, -1 for anything else.
int DayIndex(std::string_view key) {
  constexpr std::array<std::string_view, 14> keys = {
      "MO", "TU", "WE", "TH", "FR", "SA", "SU", "SD1", "SD2", "SD3", "SD4", "SD5", "SD6", "SD7"};
  const auto* const found = std::find(keys.begin(), keys.end(), key);
  return found == keys.end() ? -1 : static_cast<int>(found - keys.begin());
}

// One day, or a forward range within the weekdays or within the special days.
bool IsDays(std::string_view text) {
  const std::size_t dots = text.find("..");
  const int first = DayIndex(text.substr(0, dots));
  if (dots == std::string_view::npos) return first >= 0;
  const int last = DayIndex(text.substr(dots + 2));
  return first >= 0 && first <= last && (first < 7) == (last < 7);
}

bool IsValuePair(std::string_view text) {
  return IsPlantValue(GetField(text, 0, "!")) && IsPlantValue(GetField(text, 1, "!"));
}

bool IsLongWeekdayLine(std::string_view line) {
  return HasBars(line, {7, 20, 34, 60, 70}) && HasNumber(line) && !Columns(line, 8, 19).empty() &&
         IsDays(Columns(line, 21, 33)) && IsTimes(Columns(line, 35, 59)) &&
         IsPlantValue(Columns(line, 61, 69)) && IsPlantValue(Columns(line, 71, kLineEnd));
}

bool IsShortWeekdayLine(std::string_view line) {
  return HasBars(line, {32, 46}) && HasNumber(line) && IsDays(Columns(line, 7, 31)) &&
         IsTimes(Columns(line, 33, 45)) && IsPlantValue(Columns(line, 47, kLineEnd));
}

}  // namespace

std::string_view TakeTextLine(std::string_view& text) {
  const std::size_t end = text.find('\n');
  std::string_view line = text.substr(0, end);
  text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
  return line;
}

int LineNumber(std::string_view line) {
  const std::size_t start = std::min(line.find_first_not_of(' '), line.size());
  const std::string_view digits =
      line.substr(start, line.find_first_not_of("0123456789", start) - start);
  if (digits.empty() || digits.size() > 5) return 0;
  return static_cast<int>(Val(digits));
}

bool IsPlainLine(std::string_view line) {
  return line.size() <= kLongestLine && std::all_of(line.begin(), line.end(), [](char c) {
           const auto code = static_cast<unsigned char>(c);
           return code >= 32 && code != 255;
         });
}

bool IsPlantValue(std::string_view text) {
  std::string value(Trim(text));
  std::replace(value.begin(), value.end(), ',', '.');  // clients send either separator
  return value == "." || IsNumeric(value);
}

bool IsPltName(std::string_view name) { return EqualNoCase(name.substr(0, 3), "PLT"); }

bool IsZek1WeekdayLine(std::string_view line) {
  if (IsLongWeekdayLine(line)) return !IsPltName(Columns(line, 8, 19));
  return IsShortWeekdayLine(line);
}

bool IsZek2WeekdayLine(std::string_view line, std::string_view control) {
  if (IsPltName(control)) return IsShortWeekdayLine(line);
  return IsLongWeekdayLine(line) && EqualNoCase(Columns(line, 8, 19), Trim(control.substr(0, 12)));
}

bool IsCalendarLine(std::string_view line, Generation generation) {
  const std::size_t yearDigits = generation == Generation::Zek2 ? 4 : 2;
  if (!HasNumber(line)) return false;
  if (HasBars(line, {7})) {
    return HasBars(line, {60}) && IsDates(Columns(line, 8, 59), yearDigits) &&
           DayIndex(Columns(line, 61, kLineEnd)) >= 0;
  }
  return HasBars(line, {32}) && IsDates(Columns(line, 7, 31), yearDigits) &&
         DayIndex(Columns(line, 33, kLineEnd)) >= 0;
}

bool IsExceptionLine(std::string_view line, Generation generation) {
  if (!HasNumber(line)) return false;
  if (generation == Generation::Zek1) {
    return HasBars(line, {7, 20, 60}) && !Columns(line, 8, 19).empty() &&
           IsOneOrTwo(Columns(line, 21, 59), IsMoment) && IsValuePair(line.substr(60));
  }
  return HasBars(line, {32, 46}) && IsDates(Columns(line, 7, 31), 4) &&
         IsTimes(Columns(line, 33, 45)) && IsValuePair(line.substr(46));
}

}  // namespace zek::sim
