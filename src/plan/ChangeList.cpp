#include "plan/ChangeList.h"

#include <algorithm>
#include <array>
#include <bitset>
#include <utility>

#include "forecast/MomentText.h"
#include "formats/CatalogueFields.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

using Words = std::vector<std::string_view>;

constexpr std::string_view kNone = "-";
constexpr std::size_t kLongestShown = 40;

Words WordsOf(std::string_view line) {
  constexpr std::string_view blanks = " \t";
  Words words;
  while (true) {
    const std::size_t begin = line.find_first_not_of(blanks);
    if (begin == std::string_view::npos) return words;
    line.remove_prefix(begin);
    words.push_back(line.substr(0, line.find_first_of(blanks)));
    line.remove_prefix(words.back().size());
  }
}

// Both ends of "A..B"; of "A" alone twice the same.
std::pair<std::string_view, std::string_view> EndsOf(std::string_view range) {
  const std::size_t mark = range.find(kRangeMark);
  if (mark == std::string_view::npos) return {range, range};
  return {range.substr(0, mark), range.substr(mark + kRangeMark.size())};
}

// Returns the number of keys for another text.
std::size_t DayIn(std::string_view text) {
  const auto* const key = std::find(kDayKeys.begin(), kDayKeys.end(), UpperCase(text));
  return static_cast<std::size_t>(key - kDayKeys.begin());
}

// Reads one line. The first problem is kept; what was read after it does not count.
class LineReader {
 public:
  explicit LineReader(Words words) : words_(std::move(words)) {}

  std::optional<ListedChange> Read() {
    constexpr std::size_t shortest = 3;
    const bool add = words_.front() == "+";
    if (words_.size() >= shortest && (add || words_.front() == "-")) {
      const std::string kind = UpperCase(words_[1]);
      words_.erase(words_.begin(), words_.begin() + 2);
      if (kind == KindOf(Catalogue::Sdc).name) return Dates(add);
      if (kind == KindOf(Catalogue::Ovc).name) return Exception(add);
      if (kind == KindOf(Catalogue::Wdc).name) return Rows(add);
    }
    Bad(text::kPlanBadChange, {});
    return std::nullopt;
  }

  BadChange Problem() const { return bad_; }

 private:
  bool Has(std::size_t least, std::size_t most) {
    if (words_.size() < least || words_.size() > most) Bad(text::kPlanBadChange, {});
    return bad_.text == 0;
  }

  std::optional<ListedChange> Dates(bool add) {
    const std::size_t count = add ? 2 : 1;
    if (!Has(count, count)) return std::nullopt;
    const auto [first, last] = EndsOf(words_[0]);
    CalendarChange change{Date(first), Date(last), kNoDayType};
    if (add) change.type = static_cast<std::int16_t>(DayIn(words_[1]) + 1);
    if (change.type > kCalendarDayTypes) Bad(text::kPlanBadType, words_[1]);
    if (PackDate(change.last, 0) < PackDate(change.first, 0)) Bad(text::kPlanBackwards, words_[0]);
    return Ended(change);
  }

  std::optional<ListedChange> Exception(bool add) {
    const std::size_t count = add ? 4 : 1;
    if (!Has(count, count)) return std::nullopt;
    ExceptionChange change{add, {true, MomentIn(words_[0])}};
    if (!add) return Ended(change);
    if (words_[1] != kNone) {
      change.row.stop = MomentIn(words_[1]);
      if (change.row.stop < change.row.start) Bad(text::kPlanBackwards, words_[1]);
    }
    change.row.valueOn = Value(words_[2]);
    change.row.valueOff = Value(words_[3]);
    return Ended(change);
  }

  std::optional<ListedChange> Rows(bool add) {
    if (!Has(add ? 3 : 2, add ? 4 : 2)) return std::nullopt;
    WeekdayChange change{add, Days(words_[0]), {}};
    const auto [start, stop] = EndsOf(words_[1]);
    change.row.start = Clock(start);
    if (change.row.start == kMinutesOfDay) Bad(text::kPlanBadTime, start);
    if (!add && start.size() != words_[1].size()) Bad(text::kPlanBadTime, words_[1]);
    if (!add) return Ended(change);
    if (start.size() != words_[1].size()) change.row.stop = Clock(stop);
    change.row.valueOn = Value(words_[2]);
    if (change.row.valueOn == kNoValue) Bad(text::kPlanBadValue, words_[2]);
    if (words_.size() > 3) change.row.valueOff = Value(words_[3]);
    return Ended(change);
  }

  CalendarDate Date(std::string_view text) {
    const auto day = ParseDay(text);
    if (!day) {
      Bad(text::kPlanBadDate, text);
      return {};
    }
    const DateParts parts = DateOf(StartOf(*day));
    return {parts.year, parts.month - 1, parts.day};
  }

  Moment MomentIn(std::string_view text) {
    const auto moment = ParseMoment(text);
    if (!moment) Bad(text::kPlanBadMoment, text);
    return moment.value_or(0);
  }

  std::int16_t Clock(std::string_view text) {
    const double minutes = NumberAt(text, 0, 2) * 60 + NumberAt(text, 3, 2);
    const int time = static_cast<int>(std::clamp<double>(minutes, 0, kMinutesOfDay));
    if (ClockText(time) != text) Bad(text::kPlanBadTime, text);
    return static_cast<std::int16_t>(time);
  }

  // A value that a line would hold rounded is refused.
  float Value(std::string_view text) {
    if (text == kNone) return kNoValue;
    std::string number(text);
    std::replace(number.begin(), number.end(), ',', '.');
    const float value = ToSingle(Val(number));
    if (!IsNumeric(number) || value == kNoValue || Val(FormatNumber(value, '.')) != Val(number))
      Bad(text::kPlanBadValue, text);
    return value;
  }

  // Each day once, however often it is named.
  std::vector<std::size_t> Days(std::string_view text) {
    std::bitset<kDayKeys.size()> named;
    std::string_view rest = text;
    for (bool more = true; more && bad_.text == 0;) {
      const std::size_t comma = rest.find(',');
      const auto [first, last] = EndsOf(rest.substr(0, comma));
      more = comma != std::string_view::npos;
      rest.remove_prefix(more ? comma + 1 : rest.size());
      std::size_t day = DayIn(first);
      const std::size_t end = DayIn(last);
      if (end < day || end == kDayKeys.size() || day / kDaysOfType != end / kDaysOfType)
        Bad(text::kPlanBadDays, text);
      for (; bad_.text == 0 && day <= end; ++day) named.set(day);
    }
    std::vector<std::size_t> days;
    for (std::size_t day = 0; day < named.size(); ++day)
      if (named.test(day)) days.push_back(day);
    return days;
  }

  void Bad(std::int32_t text, std::string_view value) {
    if (bad_.text == 0) bad_ = {0, text, Shortened(value, kLongestShown)};
  }

  std::optional<ListedChange> Ended(ListedChange change) const {
    return bad_.text == 0 ? std::optional(std::move(change)) : std::nullopt;
  }

  Words words_;
  BadChange bad_;
};

}  // namespace

Catalogue KindOf(const ListedChange& change) {
  constexpr std::array kinds = {Catalogue::Sdc, Catalogue::Ovc, Catalogue::Wdc};
  return kinds.at(change.index());
}

ChangeList ReadChangeList(std::string_view text) {
  text = WithoutUtf8Mark(text);
  ChangeList list;
  for (std::size_t number = 1; !text.empty(); ++number) {
    const Words words = WordsOf(TakeLine(text));
    if (words.empty() || words.front().starts_with('#')) continue;
    LineReader reader(words);
    std::optional<ListedChange> change = reader.Read();
    if (!change) {
      list.bad = reader.Problem();
      list.bad->line = number;
      return list;
    }
    list.changes.push_back(*std::move(change));
  }
  return list;
}

}  // namespace zek
