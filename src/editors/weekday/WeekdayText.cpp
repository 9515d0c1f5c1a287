#include "editors/weekday/WeekdayText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <iterator>
#include <utility>
#include <vector>

#include "editors/CatalogueLimits.h"
#include "editors/LineNumbers.h"
#include "editors/weekday/WeekdayCells.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Numbers.h"

namespace zek {
namespace {

constexpr std::string_view kField = "!";
constexpr std::string_view kRange = "..";
constexpr std::string_view kNone = ".";
constexpr std::string_view kDigits = "0123456789";
constexpr std::size_t kNameLength = 12;
constexpr std::size_t kPltDayColumn = 6;  // from 0
constexpr std::array<std::string_view, kWeekdayDays> kDayKeys = {
    "MO", "TU", "WE", "TH", "FR", "SA", "SU", "SD1", "SD2", "SD3", "SD4", "SD5", "SD6", "SD7"};

// Whose lines are meant: all lines of a "PLT" control, else those with its name.
struct Owner {
  bool plt;
  std::string_view name;  // as much of it as a line holds

  explicit Owner(std::string_view fullName)
      : plt(IsPltName(fullName)), name(Trim(Trim(fullName).substr(0, kNameLength))) {}

  bool IsNamedIn(std::string_view line) const { return Trim(GetField(line, 1, kField)) == name; }
};

// --- Reading ---

std::string_view TakeField(std::string_view& rest) {
  const std::string_view field = GetField(rest, 0, kField);
  rest.remove_prefix(std::min(rest.size(), field.size() + kField.size()));
  return Trim(field);
}

// What follows the number and the name; nothing when the line is another control's.
std::optional<std::string_view> OwnPart(std::string_view line, const Owner& owner) {
  if (owner.plt) return line.substr(std::min(line.size(), kPltDayColumn));
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

// Takes a day key off the front of `text`.
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
  if (!text.starts_with(kRange)) return DayRange{*first, *first};
  text.remove_prefix(kRange.size());
  const std::optional<std::size_t> last = TakeDay(text);
  if (!last || *last < *first || (*last < kDaysOfType) != (*first < kDaysOfType)) {
    return std::nullopt;
  }
  return DayRange{*first, *last};
}

// The time HH:MM at column `start` (from 0) of the time field.
std::int16_t ParseTime(std::string_view field, std::size_t start) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  const auto number = [field, isDigit](std::size_t column) -> double {
    if (column >= field.size()) return 0;
    const std::string_view text = field.substr(column, 2);
    // Nearly every number of a catalogue is one of these: worth a way of its own.
    if (text.size() == 2 && isDigit(text[0]) && isDigit(text[1])) {
      return (text[0] - '0') * 10 + (text[1] - '0');
    }
    return Val(text);
  };
  const double minutes = number(start) * 60 + number(start + 3);
  return ToInt16(std::clamp(minutes, 0.0, double{kLatestTime})).value_or(0);
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
  const std::string_view valueOff = TakeField(rest);
  if (valueOff != kNone) row.valueOff = ToSingle(ParseNumber(valueOff));
  return row;
}

// The index of the first free row of each day of the range; nothing when one day is full.
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

// Puts a line into the table; the text number of the reason when it can't. `rest` begins with the
// day key.
std::optional<std::int32_t> StoreLine(WeekdayTable& table, std::string_view rest, bool plt) {
  const std::optional<DayRange> range = ParseDays(TakeField(rest));
  if (!range) return text::kDayUnknown;
  // All days are looked at before one is filled: a line is stored whole or not at all.
  const auto rows = FreeRows(table, *range);
  if (!rows) return text::kDayFull;
  const WeekdayRow row = ParseRow(rest, plt);
  for (std::size_t day = range->first; day <= range->last; ++day) {
    table.days[day][(*rows)[day]] = row;
  }
  return std::nullopt;
}

// --- Building ---

std::string TextOfDays(DayRange range) {
  std::string text(kDayKeys[range.first]);
  if (range.last != range.first) text.append(kRange).append(kDayKeys[range.last]);
  return text;
}

std::string TextOfTimes(const WeekdayRow& row) {
  std::string text = TimeText(row.start);
  if (row.stop != kNoTime) text.append(kRange).append(TimeText(row.stop));
  return text;
}

struct LineTexts {
  std::string number;
  std::string days;
  std::string times;
  std::string valueOn;
  std::string valueOff;
};

constexpr std::size_t kNumberWidth = 5;
constexpr std::size_t kValueWidth = 9;
constexpr std::size_t kPltValueWidth = 6;

// A line of blanks with the texts put at their columns (from 0).
struct Placed {
  std::size_t column;
  std::string_view text;
};

std::string LineOf(std::size_t length, std::initializer_list<Placed> texts) {
  std::string line(length, ' ');
  for (const Placed& each : texts) each.text.copy(line.data() + each.column, length - each.column);
  return line;
}

std::string OrdinaryLine(const LineTexts& texts, std::string_view name) {
  return LineOf(70 + texts.valueOff.size(), {{kNumberWidth - texts.number.size(), texts.number},
                                             {6, kField},
                                             {7, name},
                                             {19, kField},
                                             {20, texts.days},
                                             {33, kField},
                                             {34, texts.times},
                                             {59, kField},
                                             {60, texts.valueOn},
                                             {69, kField},
                                             {70, texts.valueOff}});
}

std::string PltLine(const LineTexts& texts) {
  return LineOf(46 + kPltValueWidth, {{1, texts.number},
                                      {kPltDayColumn, texts.days},
                                      {31, kField},
                                      {32, texts.times},
                                      {45, kField},
                                      {46, texts.valueOn}});
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

  // One line for each group of consecutive days of [first, last] that are equal in `row`.
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
    LineTexts texts;
    texts.days = TextOfDays(days);
    texts.times = TextOfTimes(row);
    texts.valueOn = FormatNumber(row.valueOn, decimalSeparator_);
    const int number = numbers_.Next();
    error_ = CheckLine(texts, number);
    if (error_) return;
    texts.number = std::to_string(number);
    if (owner_.plt) {
      lines_.push_back(PltLine(texts));
      return;
    }
    texts.valueOff = row.valueOff == kNoValue ? kNone : ValueOffText(row, decimalSeparator_);
    lines_.push_back(OrdinaryLine(texts, owner_.name));
  }

  std::optional<BuildError> CheckLine(const LineTexts& texts, int number) const {
    const auto where = [&texts] { return texts.days + " " + texts.times; };
    if (lines_.size() >= kMaxCatalogueLines) {
      return BuildError{text::kCatalogueFull, {std::to_string(kMaxCatalogueLines), where(), {}}};
    }
    const int largest = owner_.plt ? kLargestPltLineNumber : kLargestLineNumber;
    if (number > largest) {
      return BuildError{text::kLineNumberTooLarge,
                        {std::to_string(number), std::to_string(largest), {}}};
    }
    const std::size_t width = owner_.plt ? kPltValueWidth : kValueWidth;
    if (texts.valueOn.size() > width) {
      return BuildError{text::kValueTooLong, {texts.valueOn, where(), std::to_string(width)}};
    }
    return std::nullopt;
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
  for (std::size_t index = 0; index < lines.size(); ++index) {
    const std::string& line = lines[index];
    const std::optional<std::string_view> rest = OwnPart(line, owner);
    if (!rest) continue;
    if (!firstNumber) firstNumber = LineNumber(line);
    if (!reading.refused) {
      const auto reason = StoreLine(reading.table, *rest, owner.plt);
      if (reason) reading.refused = RefusedLine{*reason, line, index};
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
