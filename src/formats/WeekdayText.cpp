#include "formats/WeekdayText.h"

#include <algorithm>
#include <array>
#include <cmath>
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

// --- Parsing ---

// Returns the part of a line after the number and the name. Nothing if the line has another name:
// even where every line is the owner's, that is no line of its layout.
std::optional<std::string_view> OwnPart(std::string_view line, const LineOwner& owner) {
  if (IsPltName(owner.name)) return FromColumn(line, kPltDayColumn);
  TakeField(line);  // the number
  if (TakeField(line) != LineName(owner.name)) return std::nullopt;
  return line;
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

// Days behind the range must not be lost without a word. A controller can mark a line with "*".
bool EndsDays(std::string_view rest) {
  return rest.find_first_not_of(" *") == std::string_view::npos;
}

std::optional<DayRange> ParseDays(std::string_view text) {
  const std::optional<std::size_t> first = TakeDay(text);
  if (!first) return std::nullopt;
  if (!text.starts_with(kRangeMark))
    return EndsDays(text) ? std::optional(DayRange{*first, *first}) : std::nullopt;
  text.remove_prefix(kRangeMark.size());
  const std::optional<std::size_t> last = TakeDay(text);
  if (!last || !EndsDays(text) || *last < *first ||
      (*last < kDaysOfType) != (*first < kDaysOfType)) {
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

// Stores a line in the table; returns the text number of the error if that fails. `rest` is `line`
// from the day key on.
std::optional<std::int32_t> StoreLine(WeekdayReading& reading, std::string_view line,
                                      std::string_view rest, bool plt) {
  const std::optional<DayRange> range = ParseDays(TakeField(rest));
  if (!range) return text::kDayUnknown;
  // Require times and values: a stop value that was cut off must not be sent as 0.
  if (std::count(rest.begin(), rest.end(), kFieldMark.front()) < (plt ? 1 : 2)) {
    return text::kLineIncomplete;
  }
  // Check all days before storing: a line is stored completely or not at all.
  const auto rows = FreeRows(reading.table, *range);
  if (!rows) return text::kDayFull;
  const WeekdayRow row = ParseRow(rest, plt);
  for (std::size_t day = range->first; day <= range->last; ++day) {
    reading.table.days[day][(*rows)[day]] = row;
    reading.lineNumbers[day][(*rows)[day]] = LineNumber(line);
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

// Returns the numbers for the owner's lines that replace those in `lines`.
LineNumbers NumbersAmong(std::span<const std::string> lines, const LineOwner& owner) {
  const WeekdayOwners owners(lines, owner);
  std::vector<int> taken;
  int first = 0;
  bool found = IsPltName(owner.name);  // whose numbers depend on the name alone
  for (const std::string& line : lines) {
    if (!owners.IsOwn(line)) {
      taken.push_back(LineNumber(line));
    } else if (!found && OwnPart(line, owner)) {
      first = LineNumber(line);
      found = true;
    }
  }
  return {first > 0 ? first : FirstLineNumber(owner.name), std::move(taken)};
}

// Returns the error if `lines` lines of a catalogue can't have one more with this number.
template <class Place>
std::optional<BuildError> CheckNumber(std::size_t lines, int number, const LineOwner& owner,
                                      Place place) {
  const bool plt = IsPltName(owner.name);
  const int largest = plt ? kLargestPltLineNumber : kLargestLineNumber;
  if (auto error = CheckLine(lines, number, largest, place)) return error;
  const int last = BlockOf(owner.name) + kBlockSize - 1;
  if (!plt || owner.generation == Generation::Zek2 || number <= last) return std::nullopt;
  return BuildError{text::kLineNumberBeyondBlock,
                    {std::to_string(number), owner.name, std::to_string(last)}};
}

class WeekdayBuilder {
 public:
  WeekdayBuilder(const LineOwner& owner, LineNumbers numbers, std::vector<std::string> kept,
                 char decimalSeparator)
      : owner_(owner),
        plt_(IsPltName(owner.name)),
        name_(LineName(owner.name)),
        lines_(std::move(kept)),
        numbers_(std::move(numbers)),
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
    if (plt_) {
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
    Put(line, 7, name_);
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
    if (auto error = CheckNumber(lines_.size(), number, owner_, place)) return error;
    return CheckValue(valueOn, plt_ ? kPltValueWidth : kValueWidth, place);
  }

  const LineOwner& owner_;
  bool plt_;
  std::string_view name_;  // as lines hold it
  std::vector<std::string> lines_;
  LineNumbers numbers_;
  char decimalSeparator_;
  std::optional<BuildError> error_;
};

}  // namespace

WeekdayReading ReadWeekday(std::span<const std::string> lines, const LineOwner& owner) {
  const WeekdayOwners owners(lines, owner);
  WeekdayReading reading;
  std::vector<std::string_view> ownerless;
  bool stopped = false;
  for (const std::string& line : lines) {
    if (!owners.IsOwn(line)) {
      if (owners.Of(line).empty() && !Trim(line).empty()) ownerless.push_back(line);
      continue;
    }
    const std::optional<std::string_view> rest = OwnPart(line, owner);
    if (rest && !stopped) {
      const auto reason = StoreLine(reading, line, *rest, IsPltName(owner.name));
      if (!reason) continue;
      reading.refused.push_back({*reason, line});
      stopped = *reason != text::kLineIncomplete;
    }
    ++reading.linesLost;
    reading.unread.push_back(line);
  }
  if (!ownerless.empty()) {
    reading.refused.push_back(
        {text::kLinesOwnerless, std::string(ownerless.front()), ownerless.size()});
  }
  return reading;
}

BuiltLines BuildWeekday(const WeekdayTable& table, const LineOwner& owner,
                        std::span<const std::string> lines, BuildStart start,
                        char decimalSeparator) {
  std::vector<std::string> kept;
  if (start == BuildStart::FromBuffer) {
    kept = SplitWeekday(lines, owner).others;
    std::erase_if(kept, [](const auto& line) { return line.find('*') != std::string::npos; });
  }
  WeekdayBuilder builder(owner, NumbersAmong(lines, owner), std::move(kept), decimalSeparator);
  for (std::size_t row = 0; row < kWeekdayRows; ++row) builder.AddRow(table, row, {0, 6});
  for (std::size_t row = 0; row < kWeekdayRows; ++row) builder.AddRow(table, row, {7, 13});
  return builder.Take();
}

BuiltLines NumberWeekday(std::span<const std::string> own, std::span<const std::string> fetched,
                         const LineOwner& owner) {
  LineNumbers numbers = NumbersAmong(fetched, owner);
  std::vector<std::string> lines;
  for (const std::string& line : own) {
    const int number = numbers.Next();
    const auto place = [&line] { return line; };
    if (auto error = CheckNumber(lines.size(), number, owner, place)) return *std::move(error);
    lines.push_back(WithLineNumber(
        line, number, HasLineName(line) ? NumberColumns::Right : NumberColumns::LeftOfPlt));
  }
  return lines;
}

}  // namespace zek
