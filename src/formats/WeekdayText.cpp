#include "formats/WeekdayText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <utility>
#include <vector>

#include "formats/BuiltLines.h"
#include "formats/CatalogueFields.h"
#include "formats/CatalogueLine.h"
#include "formats/LineNumbers.h"
#include "formats/WeekdayCells.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kPltDayColumn = 6;  // from 0
static_assert(kDayKeys.size() == kWeekdayDays);

// The control whose lines are read: all lines of a "PLT" control, else those with its name.
struct Owner {
  bool plt;
  std::string_view name;  // cut to the length that a line holds

  explicit Owner(std::string_view fullName) : plt(IsPltName(fullName)), name(LineName(fullName)) {}

  bool IsNamedIn(std::string_view line) const {
    return Trim(GetField(line, 1, kFieldMark)) == name;
  }
};

// --- Parsing ---

// Returns the part after the number and the name; nothing if the line is another control's.
std::optional<std::string_view> OwnPart(std::string_view line, const Owner& owner) {
  if (owner.plt) return FromColumn(line, kPltDayColumn);
  TakeField(line);  // the number
  if (TakeField(line) != owner.name) return std::nullopt;
  return line;
}

int FirstNumber(int numberOfFirstLine, std::string_view name) {
  return IsPltName(name) || numberOfFirstLine <= 0 ? FirstLineNumber(name) : numberOfFirstLine;
}

struct DayRange {
  std::size_t first;
  std::size_t last;
};

// Removes a day key from the start of `text` and returns its day.
std::optional<std::size_t> TakeDay(std::string_view& text) {
  if (text.starts_with("SD")) {
    const std::string_view rest = text.substr(2);
    const double number = Val(rest);
    if (number < 1 || number > double{kDaysOfType} || number != std::floor(number)) {
      return std::nullopt;
    }
    const std::size_t digits = rest.find_first_not_of(' ');
    text = rest.substr(std::min(rest.find_first_not_of(kDigits, digits), rest.size()));
    return kDaysOfType + static_cast<std::size_t>(number) - 1;
  }
  for (std::size_t day = 0; day < kDaysOfType; ++day) {
    if (!text.starts_with(kDayKeys[day])) continue;
    text.remove_prefix(kDayKeys[day].size());
    return day;
  }
  return std::nullopt;
}

std::optional<DayRange> ParseDays(std::string_view text) {
  const std::optional<std::size_t> first = TakeDay(text);
  if (!first) return std::nullopt;
  if (!text.starts_with(kRangeMark)) return DayRange{*first, *first};
  text.remove_prefix(kRangeMark.size());
  const std::optional<std::size_t> last = TakeDay(text);
  if (!last || *last < *first || (*last < kDaysOfType) != (*first < kDaysOfType)) {
    return std::nullopt;
  }
  return DayRange{*first, *last};
}

// Parses the time HH:MM at column `start` (from 0) of the time field.
std::int16_t ParseTime(std::string_view field, std::size_t start) {
  const double minutes = NumberAt(field, start, 2) * 60 + NumberAt(field, start + 3, 2);
  return ToInt16(std::clamp(minutes, 0.0, double{kMinutesOfDay})).value_or(0);
}

// `rest` begins with the times.
WeekdayRow ParseRow(std::string_view rest, bool plt) {
  constexpr std::size_t stopColumn = 7;
  const std::string_view times = TakeField(rest);
  WeekdayRow row;
  row.start = ParseTime(times, 0);
  if (times.size() > stopColumn) row.stop = ParseTime(times, stopColumn);
  row.valueOn = ToSingle(ParseNumber(TakeField(rest)));
  if (plt) return row;
  row.valueOff = ReadValue(TakeField(rest));
  return row;
}

// Returns the first free row of each day of the range; nothing if one day is full.
std::optional<std::array<std::size_t, kWeekdayDays>> FreeRows(const WeekdayTable& table,
                                                              DayRange range) {
  std::array<std::size_t, kWeekdayDays> rows{};
  for (std::size_t day = range.first; day <= range.last; ++day) {
    const auto& of = table.days[day];
    const auto* const free =
        std::find_if(of.begin(), of.end(), [](const WeekdayRow& row) { return !row.Used(); });
    if (free == of.end()) return std::nullopt;
    rows[day] = static_cast<std::size_t>(free - of.begin());
  }
  return rows;
}

// Stores a line in the table; returns the text number of the error if that fails. `rest` begins
// with the day key.
std::optional<std::int32_t> StoreLine(WeekdayTable& table, std::string_view rest, bool plt) {
  const std::optional<DayRange> range = ParseDays(TakeField(rest));
  if (!range) return text::kDayUnknown;
  // Require times and values: a stop value that was cut off must not be sent as 0.
  if (std::count(rest.begin(), rest.end(), kFieldMark.front()) < (plt ? 1 : 2)) {
    return text::kLineIncomplete;
  }
  // Check all days before storing: a line is stored completely or not at all.
  const auto rows = FreeRows(table, *range);
  if (!rows) return text::kDayFull;
  const WeekdayRow row = ParseRow(rest, plt);
  for (std::size_t day = range->first; day <= range->last; ++day) {
    table.days[day][(*rows)[day]] = row;
  }
  return std::nullopt;
}

// --- Building ---

constexpr std::size_t kValueWidth = 9;
constexpr std::size_t kPltValueWidth = 6;

// The layouts up to the start of their last field.
constexpr std::string_view kOrdinaryBlank =
    "      !            !             !                         !         !";
constexpr std::string_view kPltBlank = "                               !             !      ";

std::size_t PutDays(std::string& line, std::size_t column, DayRange range) {
  column = Put(line, column, kDayKeys[range.first]);
  if (range.last == range.first) return column;
  return Put(line, Put(line, column, kRangeMark), kDayKeys[range.last]);
}

std::size_t PutTimes(std::string& line, std::size_t column, const WeekdayRow& row) {
  column = PutTime(line, column, row.start);
  if (row.stop == kNoTime) return column;
  return PutTime(line, Put(line, column, kRangeMark), row.stop);
}

// "MO..FR 07:00..16:30", for messages.
std::string PlaceOf(DayRange days, const WeekdayRow& row) {
  std::string place(kOrdinaryBlank.size(), ' ');
  place.resize(PutTimes(place, PutDays(place, 0, days) + 1, row));
  return place;
}

class WeekdayBuilder {
 public:
  WeekdayBuilder(Owner owner, std::vector<std::string> kept, int first, char decimalSeparator)
      : owner_(owner),
        lines_(std::move(kept)),
        numbers_(first, lines_),
        decimalSeparator_(decimalSeparator) {
    lines_.reserve(kMaxCatalogueLines);
  }

  // Adds one line for each group of consecutive days in [first, last] that are equal in `row`.
  void AddRow(const WeekdayTable& table, std::size_t row, DayRange days) {
    for (std::size_t day = days.first; day <= days.last && !error_; ++day) {
      const WeekdayRow& cells = table.days[day][row];
      if (!cells.Used()) continue;
      const std::size_t groupStart = day;
      while (day < days.last && table.days[day + 1][row] == cells) ++day;
      AddLine({groupStart, day}, cells);
    }
  }

  BuiltLines Take() {
    if (error_) return *std::move(error_);
    return std::move(lines_);
  }

 private:
  void AddLine(DayRange days, const WeekdayRow& row) {
    const std::string valueOn = FormatNumber(row.valueOn, decimalSeparator_);
    const int number = numbers_.Next();
    error_ = Check(days, row, valueOn, number);
    if (error_) return;
    if (owner_.plt) {
      AddPltLine(days, row, valueOn, number);
    } else {
      AddOrdinaryLine(days, row, valueOn, number);
    }
  }

  void AddOrdinaryLine(DayRange days, const WeekdayRow& row, const std::string& valueOn,
                       int number) {
    const std::string valueOff = LineValue(row.valueOff, decimalSeparator_);
    std::string& line = lines_.emplace_back();
    line.reserve(kOrdinaryBlank.size() + valueOff.size());
    line += kOrdinaryBlank;
    PutNumberBefore(line, kNumberWidth, number);
    Put(line, 7, owner_.name);
    PutDays(line, 20, days);
    PutTimes(line, 34, row);
    Put(line, 60, valueOn);
    line += valueOff;
  }

  void AddPltLine(DayRange days, const WeekdayRow& row, const std::string& valueOn, int number) {
    std::string& line = lines_.emplace_back(kPltBlank);
    Put(line, 1, std::to_string(number));
    PutDays(line, kPltDayColumn, days);
    PutTimes(line, 32, row);
    Put(line, 46, valueOn);
  }

  std::optional<BuildError> Check(DayRange days, const WeekdayRow& row, const std::string& valueOn,
                                  int number) const {
    const auto place = [&] { return PlaceOf(days, row); };
    const int largest = owner_.plt ? kLargestPltLineNumber : kLargestLineNumber;
    if (auto error = CheckLine(lines_.size(), number, largest, place)) return error;
    return CheckValue(valueOn, owner_.plt ? kPltValueWidth : kValueWidth, place);
  }

  Owner owner_;
  std::vector<std::string> lines_;
  LineNumbers numbers_;
  char decimalSeparator_;
  std::optional<BuildError> error_;
};

}  // namespace

WeekdayReading ReadWeekday(std::span<const std::string> lines, std::string_view name) {
  const Owner owner(name);
  WeekdayReading reading;
  std::optional<int> firstNumber;
  for (const std::string& line : lines) {
    const std::optional<std::string_view> rest = OwnPart(line, owner);
    if (!rest) continue;
    if (!firstNumber) firstNumber = LineNumber(line);
    if (!reading.refused) {
      const auto reason = StoreLine(reading.table, *rest, owner.plt);
      if (reason) reading.refused = RefusedLine{*reason, line};
    }
    if (reading.refused) ++reading.linesLost;
  }
  reading.nextLineNumber = FirstNumber(firstNumber.value_or(0), name);
  return reading;
}

BuiltLines BuildWeekday(const WeekdayTable& table, std::string_view name,
                        std::span<const std::string> lines, BuildStart start,
                        char decimalSeparator) {
  const Owner owner(name);
  const auto firstLine = std::find_if(lines.begin(), lines.end(), [&owner](const auto& line) {
    return OwnPart(line, owner).has_value();
  });
  const int first = FirstNumber(firstLine == lines.end() ? 0 : LineNumber(*firstLine), name);
  std::vector<std::string> kept;
  if (start == BuildStart::FromBuffer) {
    std::copy_if(lines.begin(), lines.end(), std::back_inserter(kept), [&owner](const auto& line) {
      return !owner.IsNamedIn(line) && line.find('*') == std::string::npos;
    });
  }
  WeekdayBuilder builder(owner, std::move(kept), first, decimalSeparator);
  for (std::size_t row = 0; row < kWeekdayRows; ++row) builder.AddRow(table, row, {0, 6});
  for (std::size_t row = 0; row < kWeekdayRows; ++row) builder.AddRow(table, row, {7, 13});
  return builder.Take();
}

}  // namespace zek
