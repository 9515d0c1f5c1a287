#include "formats/CalendarText.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "formats/BuiltLines.h"
#include "formats/CatalogueFields.h"
#include "formats/CatalogueLine.h"
#include "formats/LineNumbers.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

constexpr std::size_t kPltNumberColumn = 1;  // from 0
constexpr std::size_t kDateColumn = 7;
constexpr std::size_t kPltDateColumn = 6;
constexpr std::size_t kTypeKeyLength = 3;
static_assert(kDayKeys.size() == kCalendarDayTypes);

// --- Parsing ---

struct CalendarLine {
  std::string_view number;
  std::string_view dates;
  std::string_view type;
  bool plt = false;  // in the "PLT" layout
};

CalendarLine Cut(std::string_view line) {
  const std::string_view head = GetField(line, 0, kFieldMark);
  std::string_view rest = line;
  CalendarLine cut;
  cut.number = TakeField(rest);
  const std::string_view text = Trim(FromColumn(head, kPltDateColumn));
  cut.plt = !text.empty() && head[kPltDateColumn - 1] == ' ';
  if (cut.plt) {
    cut.number = Trim(head.substr(kPltNumberColumn, kNumberWidth - kPltNumberColumn));
    cut.dates = text;
  } else {
    cut.dates = TakeField(rest);
  }
  cut.type = TakeField(rest);
  return cut;
}

// Returns the year of a date field; nothing if no controller accepts it.
std::optional<int> ParseYear(std::string_view text, const CalendarYears& years) {
  constexpr int twoDigits = 100;
  constexpr int firstTwoDigits = CalendarYears::kFirst % twoDigits;
  text = Trim(text);
  // Only digits are valid: other characters may be a second date without its "..".
  if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos) {
    return std::nullopt;
  }
  const double number = Val(text);
  if (number > years.Last()) return std::nullopt;
  int year = static_cast<int>(number);
  if (years.generation == Generation::Zek1) {
    if (year >= twoDigits) return std::nullopt;
    year += year < firstTwoDigits ? 2000 : 1900;
  }
  return years.Has(year) ? std::optional(year) : std::nullopt;
}

std::optional<CalendarDate> ParseDate(std::string_view text, const CalendarYears& years) {
  constexpr std::size_t monthColumn = 3;
  constexpr std::size_t yearColumn = 7;
  const double day = NumberAt(text, 0, 2);
  const std::optional<int> month = MonthAt(text, monthColumn);
  const std::optional<int> year = ParseYear(FromColumn(text, yearColumn), years);
  if (!month || !year || day != std::floor(day)) return std::nullopt;
  const CalendarDate date{*year, *month, static_cast<int>(day)};
  return IsDate(date) ? std::optional(date) : std::nullopt;
}

struct DateRun {
  CalendarDate first;
  CalendarDate last;
};

std::optional<DateRun> ParseRun(std::string_view text, const CalendarYears& years) {
  const std::size_t mark = text.find(kRangeMark);
  const std::optional<CalendarDate> first = ParseDate(Trim(text.substr(0, mark)), years);
  if (!first) return std::nullopt;
  if (mark == std::string_view::npos) return DateRun{*first, *first};
  const std::optional<CalendarDate> last =
      ParseDate(Trim(text.substr(mark + kRangeMark.size())), years);
  if (!last || PackDate(*last, 0) < PackDate(*first, 0)) return std::nullopt;
  return DateRun{*first, *last};
}

// Returns the day type of a key, or nothing for an unknown one. Only three characters count.
std::optional<std::int16_t> ParseType(std::string_view text) {
  const std::string_view key = Trim(text.substr(0, kTypeKeyLength));
  const auto* const found = std::find(kDayKeys.begin(), kDayKeys.end(), key);
  if (found == kDayKeys.end()) return std::nullopt;
  return static_cast<std::int16_t>(found - kDayKeys.begin() + 1);
}

// Stores a line in the table; returns the text number of the error if not all of it was stored.
std::optional<std::int32_t> StoreLine(CalendarTable& table, const CalendarLine& line,
                                      const CalendarYears& years) {
  const std::optional<DateRun> run = ParseRun(line.dates, years);
  if (!run) return text::kDatesWrong;
  const std::optional<std::int16_t> type = ParseType(line.type);
  if (!type) return text::kDayTypeUnknown;
  if (!table.Add(run->first, run->last, *type)) return text::kCalendarCut;
  return std::nullopt;
}

// --- Building ---

// The layouts up to the start of the day type.
constexpr std::string_view kOrdinaryBlank =
    "      !                                                    !";
constexpr std::string_view kPltBlank = "                               !";

struct KeyRun {
  std::int32_t first;
  std::int32_t last;
  std::int16_t type;
};

std::vector<KeyRun> RunsOf(const CalendarTable& table) {
  std::vector<KeyRun> runs;
  runs.reserve(kMaxCatalogueLines);
  std::int32_t next = 0;  // the day after the last run
  for (const CalendarEntry& entry : table.Used()) {
    if (!runs.empty() && entry.type == runs.back().type && entry.date == next) {
      runs.back().last = entry.date;
    } else {
      runs.push_back({entry.date, entry.date, entry.type});
    }
    next = NextKey(entry.date, table.BaseYear());
  }
  return runs;
}

class CalendarBuilder {
 public:
  CalendarBuilder(const CalendarLayout& layout, Generation generation, int baseYear)
      : plt_(layout.plt),
        generation_(generation),
        baseYear_(baseYear),
        numbers_(layout.firstNumber, {}) {
    lines_.reserve(kMaxCatalogueLines);
  }

  std::optional<BuildError> Add(const KeyRun& run) {
    const int number = numbers_.Next();
    const auto place = [&] {
      std::string text(kOrdinaryBlank.size(), ' ');
      text.resize(PutRun(text, 0, run));
      return text;
    };
    const int largest = plt_ ? kLargestPltLineNumber : kLargestLineNumber;
    if (auto error = CheckLine(lines_.size(), number, largest, place)) return error;
    AddLine(run, number);
    return std::nullopt;
  }

  std::vector<std::string> Take() { return std::move(lines_); }

 private:
  void AddLine(const KeyRun& run, int number) {
    const std::string_view blank = plt_ ? kPltBlank : kOrdinaryBlank;
    std::string& line = lines_.emplace_back();
    line.reserve(blank.size() + kTypeKeyLength);
    line += blank;
    if (plt_) {
      Put(line, kPltNumberColumn, std::to_string(number));
    } else {
      PutNumberBefore(line, kNumberWidth, number);
    }
    PutRun(line, plt_ ? kPltDateColumn : kDateColumn, run);
    line += kDayKeys.at(static_cast<std::size_t>(run.type) - 1);
  }

  std::size_t PutRun(std::string& line, std::size_t column, const KeyRun& run) const {
    column = PutKey(line, column, run.first);
    if (run.last == run.first) return column;
    return PutKey(line, Put(line, column, kRangeMark), run.last);
  }

  std::size_t PutKey(std::string& line, std::size_t column, std::int32_t key) const {
    const CalendarDate date = UnpackDate(key, baseYear_);
    return PutDate(line, column, date.year, date.month, date.day, generation_);
  }

  bool plt_;
  Generation generation_;
  int baseYear_;
  LineNumbers numbers_;
  std::vector<std::string> lines_;
};

}  // namespace

CalendarYears YearsOf(const Settings& settings, Generation generation) {
  return {generation, settings.SDCLastTwoDigitYear, settings.SDCLastYear};
}

CalendarLayout EmptyCalendarLayout(std::string_view name) {
  return {IsPltName(name), FirstLineNumber(name)};
}

CalendarReading ReadCalendar(std::span<const std::string> lines, const CalendarYears& years,
                             int baseYear) {
  CalendarReading reading{CalendarTable(baseYear), {}, 0, {}, {}, {}};
  std::size_t numbered = 0;
  bool cut = false;
  for (const std::string& line : lines) {
    const CalendarLine fields = Cut(line);
    const int number = LineNumber(line);
    if (number > 0 && !reading.layout) {
      reading.layout = CalendarLayout{fields.plt, number};
    }
    if (fields.dates.find('*') != std::string_view::npos) {
      ++reading.linesLost;
      continue;
    }
    const std::optional<std::int32_t> reason = StoreLine(reading.table, fields, years);
    for (const std::size_t used = reading.table.Used().size(); numbered < used; ++numbered) {
      reading.lineNumbers[numbered] = number;
    }
    if (!reason) continue;
    ++reading.linesLost;
    reading.unread.push_back(line);
    if (*reason == text::kCalendarCut && std::exchange(cut, true)) continue;
    reading.refused.push_back({*reason, std::string(fields.number), line});
  }
  return reading;
}

BuiltLines BuildCalendar(CalendarTable table, const CalendarLayout& layout, Generation generation) {
  table.Sort();
  CalendarBuilder builder(layout, generation, table.BaseYear());
  for (const KeyRun& run : RunsOf(table)) {
    if (auto error = builder.Add(run)) return *std::move(error);
  }
  return builder.Take();
}

}  // namespace zek
