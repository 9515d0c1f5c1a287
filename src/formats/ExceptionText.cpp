#include "formats/ExceptionText.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <utility>

#include "formats/BuiltLines.h"
#include "formats/CatalogueFields.h"
#include "formats/CatalogueLine.h"
#include "formats/ExceptionCells.h"
#include "formats/LineNumbers.h"
#include "lang/TextNumbers.h"

namespace zek {

namespace {

bool IsModern(const LineOwner& owner) { return owner.generation == Generation::Zek2; }

struct Years {
  int first;
  int last;
};
constexpr Years kOldYears{1990, 2089};
constexpr Years kModernYears{1900, 9999};

// --- Parsing ---

// True for a line that is not read because of a "*". In columns 8, 16 and so on it is accepted: a
// name on a ZEK1 begins in one of them.
bool IsPassedOver(std::string_view line) {
  const std::size_t star = line.find('*');
  return star != std::string_view::npos && (star + 1) % 8 != 0;
}

// Parses the date at a column (from 0) of a field: DD-MON-YY (ZEK1) or DD-MON-YYYY (ZEK2). The 31st
// of a shorter month is a day of the next one. Text that is not a date must not become one.
std::optional<Moment> DateAt(std::string_view field, std::size_t column, Generation generation) {
  constexpr double longestMonth = 31;
  const bool modern = generation == Generation::Zek2;
  const std::string_view yearText = FromColumn(field, column + 7);
  const std::optional<int> month = MonthAt(field, column + 3);
  const double day = NumberAt(field, column, 2);
  double year = NumberAt(yearText, 0, modern ? 4 : 2);
  if (!month || day < 1 || day > longestMonth || yearText.empty()) return std::nullopt;
  if (yearText[0] < '0' || yearText[0] > '9') return std::nullopt;
  if (!modern) year += year < 90 ? 2000 : 1900;
  const auto [first, last] = modern ? kModernYears : kOldYears;
  if (year < first || year > last) return std::nullopt;
  return DateMoment(year, *month + 1, day);
}

// Parses the time HH:MM at a column. Text that is not a number reads as 0; a time beyond 24:59
// gives nothing.
std::optional<Moment> TimeAt(std::string_view field, std::size_t column) {
  constexpr double lastHour = 24;
  constexpr double minutesOfHour = 60;
  const double hours = NumberAt(field, column, 2);
  const double minutes = NumberAt(field, column + 3, 2);
  if (hours > lastHour || minutes >= minutesOfHour) return std::nullopt;
  return TimeMoment(std::max(hours, 0.0), std::max(minutes, 0.0));
}

// True if only blanks and "*" are in a field from a column on.
bool EndsAt(std::string_view field, std::size_t column) {
  return FromColumn(field, column).find_first_not_of(" *") == std::string_view::npos;
}

// Reports whether a second date or time follows the first one, which ends before a column. Returns
// nothing if other text follows: a stop shifted by a column would be lost silently.
std::optional<bool> HasRangeAt(std::string_view field, std::size_t column) {
  if (FromColumn(field, column).starts_with(kRangeMark)) return true;
  return EndsAt(field, column) ? std::optional(false) : std::nullopt;
}

std::optional<Moment> OldMomentAt(std::string_view field, std::size_t column) {
  constexpr std::size_t timeColumn = 10;  // of DD-MON-YY,HH:MM
  const auto date = DateAt(field, column, Generation::Zek1);
  const auto time = TimeAt(field, column + timeColumn);
  return date && time ? std::optional(*date + *time) : std::nullopt;
}

// Parses the start and stop in field 2 of a ZEK1 line; returns nothing if one is invalid.
std::optional<OvcRow> OldMoments(std::string_view field) {
  constexpr std::size_t rangeColumn = 15;
  constexpr std::size_t stopColumn = 17;
  const auto start = OldMomentAt(field, 0);
  const auto hasStop = HasRangeAt(field, rangeColumn);
  if (!start || !hasStop) return std::nullopt;
  OvcRow row{true, *start};
  if (!*hasStop) return row;
  const auto stop = OldMomentAt(field, stopColumn);
  if (!stop || !EndsAt(field, stopColumn + rangeColumn)) return std::nullopt;
  row.stop = *stop;
  return row;
}

// Parses the dates and times of a ZEK2 line in the same way.
std::optional<OvcRow> ModernMoments(std::string_view dates, std::string_view times) {
  constexpr std::size_t rangeColumn = 11;
  constexpr std::size_t stopColumn = 13;
  constexpr std::size_t stopTimeColumn = kTimeLength + kRangeMark.size();
  const auto start = DateAt(dates, 0, Generation::Zek2);
  const auto startTime = TimeAt(times, 0);
  const auto stopTime = TimeAt(times, stopTimeColumn);
  const auto hasStop = HasRangeAt(dates, rangeColumn);
  if (!start || !startTime || !stopTime || !hasStop || !HasRangeAt(times, kTimeLength)) {
    return std::nullopt;
  }
  OvcRow row{true, *start + *startTime, std::min(*stopTime, Moment{kMinutesOfDay})};
  if (!*hasStop) return row;
  const auto stop = DateAt(dates, stopColumn, Generation::Zek2);
  if (!stop || !EndsAt(dates, stopColumn + rangeColumn)) return std::nullopt;
  row.stop = *stop + *stopTime;
  return row;
}

// Parses a line of the owner. Returns nothing if a date or time is invalid or a field is missing: a
// stop value that was cut off must not be sent as 0.
std::optional<OvcRow> ParseLine(std::string_view line, Generation generation) {
  constexpr std::size_t modernDateColumn = 6;
  const bool modern = generation == Generation::Zek2;
  const auto marks = std::count(line.begin(), line.end(), kFieldMark.front());
  if (marks < (modern ? 3 : 4)) return std::nullopt;
  std::string_view rest = line;
  std::optional<OvcRow> row;
  if (modern) {
    rest = FromColumn(rest, modernDateColumn);
    const std::string_view dates = TakeColumns(rest);
    row = ModernMoments(dates, TakeColumns(rest));
  } else {
    TakeColumns(rest);  // the number
    TakeColumns(rest);  // the name
    row = OldMoments(TakeColumns(rest));
  }
  if (!row) return std::nullopt;
  row->valueOn = ReadValue(TakeField(rest));
  row->valueOff = ReadValue(TakeField(rest));
  return row;
}

// --- Building ---

constexpr std::size_t kOldValueWidth = 9;
constexpr std::size_t kModernValueWidth = 6;

// The layouts up to the start of the values.
constexpr std::string_view kOldBlank =
    "      !            !                                       ";
constexpr std::string_view kModernBlank = "                               !             ";

// Returns the numbers for the owner's lines that replace those in `lines`.
LineNumbers NumbersAmong(std::span<const std::string> lines, const LineOwner& owner,
                         const ExceptionOptions& options) {
  constexpr std::int64_t limit = 1'000'000;
  std::vector<int> taken;
  std::int64_t first = 0;
  for (const std::string& line : lines) {
    if (!IsOwnException(line, owner)) {
      taken.push_back(LineNumber(line));
    } else if (first == 0 && !IsPassedOver(line)) {
      first = std::max(LineNumber(line), 0);
    }
  }
  if (IsPltName(owner.name)) {
    first = std::int64_t{PltNumber(owner.name)} * options.OVCMultiplyPLT + options.OVCStartRow;
  }
  if (first == 0) first = options.OVCStartRow;
  return {static_cast<int>(std::clamp(first, -limit, limit)), std::move(taken)};
}

// Returns the error if `lines` lines can't have one more with this number.
template <class Place>
std::optional<BuildError> CheckNumber(std::size_t lines, int number, Place place) {
  if (auto error = CheckLine(lines, number, kLargestLineNumber, place)) return error;
  if (number >= 1) return std::nullopt;
  return BuildError{text::kLineNumberTooSmall, {std::to_string(number), {}, {}}};
}

class ExceptionBuilder {
 public:
  ExceptionBuilder(const LineOwner& owner, LineNumbers numbers, std::vector<std::string> kept,
                   char decimalSeparator)
      : owner_(owner),
        lines_(std::move(kept)),
        numbers_(std::move(numbers)),
        decimalSeparator_(decimalSeparator) {
    lines_.reserve(kMaxCatalogueLines);
  }

  void AddRow(const OvcRow& row) {
    if (!row.used || error_) return;
    const int number = numbers_.Next();
    const std::string valueOn = LineValue(row.valueOn, decimalSeparator_);
    error_ = Check(row, number, valueOn);
    if (error_) return;
    std::string line = IsModern(owner_) ? ModernPart(row, number) : OldPart(row, number);
    line.append(kFieldMark).append(valueOn);
    if (row.valueOn != kNoValue) line.append(ValueWidth() - valueOn.size(), ' ');
    line.append(kFieldMark).append(LineValue(row.valueOff, decimalSeparator_));
    lines_.push_back(std::move(line));
  }

  BuiltLines Take() {
    if (error_) return *std::move(error_);
    return std::move(lines_);
  }

 private:
  std::size_t ValueWidth() const { return IsModern(owner_) ? kModernValueWidth : kOldValueWidth; }

  std::size_t PutDateOf(std::string& line, std::size_t column, Moment moment) const {
    const DateParts date = DateOf(moment);
    return PutDate(line, column, date.year, date.month - 1, date.day, owner_.generation);
  }

  std::size_t PutMoment(std::string& line, std::size_t column, Moment moment) const {
    column = Put(line, PutDateOf(line, column, moment), ",");
    return PutTime(line, column, TimeOfDay(moment));
  }

  std::string OldPart(const OvcRow& row, int number) const {
    std::string line(kOldBlank);
    PutNumberBefore(line, kNumberWidth, number);
    Put(line, 7, LineName(owner_.name));
    const std::size_t column = PutMoment(line, 20, row.start);
    if (row.HasStopDate()) PutMoment(line, Put(line, column, kRangeMark), row.stop);
    return line;
  }

  std::string ModernPart(const OvcRow& row, int number) const {
    std::string line(kModernBlank);
    Put(line, 0, std::to_string(number));
    const std::size_t column = PutDateOf(line, 6, row.start);
    if (row.HasStopDate()) PutDateOf(line, Put(line, column, kRangeMark), row.stop);
    PutTime(line, Put(line, PutTime(line, 32, TimeOfDay(row.start)), kRangeMark), row.StopTime());
    return line;
  }

  std::optional<BuildError> Check(const OvcRow& row, int number, const std::string& valueOn) const {
    const auto place = [&row] {
      return DateText(row.start) + " " + ClockText(TimeOfDay(row.start));
    };
    if (auto error = CheckNumber(lines_.size(), number, place)) return error;
    if (auto error = CheckValue(valueOn, ValueWidth(), place)) return error;
    // A stop below 0 also has a date, though the boxes can't show it.
    const bool hasStop = row.HasStopDate() || row.stop < 0;
    if (auto error = CheckYear(row.start)) return error;
    return hasStop ? CheckYear(row.stop) : std::nullopt;
  }

  std::optional<BuildError> CheckYear(Moment moment) const {
    const auto [first, last] = IsModern(owner_) ? kModernYears : kOldYears;
    const int year = DateOf(moment).year;
    if (year >= first && year <= last) return std::nullopt;
    return BuildError{text::kYearUnfit,
                      {DateText(moment), std::to_string(first), std::to_string(last)}};
  }

  const LineOwner& owner_;
  std::vector<std::string> lines_;
  LineNumbers numbers_;
  char decimalSeparator_;
  std::optional<BuildError> error_;
};

}  // namespace

ExceptionReading ReadExceptions(std::span<const std::string> lines, const LineOwner& owner) {
  ExceptionReading reading;
  std::size_t used = 0;
  bool full = false;
  for (const std::string& line : lines) {
    if (!IsOwnException(line, owner)) continue;
    if (!full && !IsPassedOver(line)) {
      full = used == kExceptionRows;
      const auto row = full ? std::nullopt : ParseLine(line, owner.generation);
      if (row) {
        reading.table.rows.at(used++) = *row;
        reading.inOrder.push_back({*row, LineNumber(line)});
        continue;
      }
      const std::int32_t reason = full ? text::kExceptionsFull : text::kExceptionRefused;
      reading.refused.push_back({reason, line});
    }
    ++reading.linesLost;
    if (full || !IsPassedOver(line)) reading.unread.push_back(line);
  }
  if (!full) {
    std::stable_sort(
        reading.table.rows.begin(), reading.table.rows.end(),
        [](const OvcRow& left, const OvcRow& right) { return left.start > right.start; });
  }
  return reading;
}

BuiltLines BuildExceptions(const ExceptionTable& table, const LineOwner& owner,
                           std::span<const std::string> lines, const ExceptionOptions& options,
                           char decimalSeparator) {
  std::vector<std::string> kept;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(kept), [&owner](const auto& line) {
    return line.find('*') == std::string::npos && !Trim(line).empty() &&
           !IsOwnException(line, owner);
  });
  ExceptionBuilder builder(owner, NumbersAmong(lines, owner, options), std::move(kept),
                           decimalSeparator);
  for (const OvcRow& row : table.rows) builder.AddRow(row);
  return builder.Take();
}

BuiltLines NumberExceptions(std::span<const std::string> own, std::span<const std::string> fetched,
                            const LineOwner& owner, const ExceptionOptions& options) {
  LineNumbers numbers = NumbersAmong(fetched, owner, options);
  std::vector<std::string> lines;
  for (const std::string& line : own) {
    const int number = numbers.Next();
    const auto place = [&line] { return line; };
    if (auto error = CheckNumber(lines.size(), number, place)) return *std::move(error);
    lines.push_back(
        WithLineNumber(line, number, IsModern(owner) ? NumberColumns::Left : NumberColumns::Right));
  }
  return lines;
}

std::optional<ExceptionOptions> ReadExceptionOptions(const NumberReader& numbers,
                                                     Generation generation) {
  const bool modern = generation == Generation::Zek2;
  const std::string_view section = modern ? "SaveOptionsZEK2" : "SaveOptionsZEK1";
  const auto startRow = numbers.Read(section, "OVCStartRow", "1");
  if (!startRow) return std::nullopt;
  const auto multiplyPlt = numbers.Read(section, "OVCMultiplyPLT", modern ? "0" : "100");
  if (!multiplyPlt) return std::nullopt;
  return ExceptionOptions{*startRow, *multiplyPlt};
}

std::vector<std::string> LostStopTimes(const ExceptionTable& table, Generation generation) {
  std::vector<std::string> lost;
  if (generation == Generation::Zek2) return lost;
  for (const OvcRow& row : table.rows) {
    if (!row.used || row.HasStopDate() || row.stop == 0) continue;
    const DateParts date = DateOf(row.start);
    std::string start = "DD-MON-YY";
    PutDate(start, 0, date.year, date.month - 1, date.day, generation);
    lost.push_back(start + "," + ClockText(TimeOfDay(row.start)) + std::string(kRangeMark) +
                   ClockText(row.StopTime()));
  }
  return lost;
}

}  // namespace zek
