#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <iostream>
#include <random>

#include "findings/Effect.h"
#include "forecast/Replay.h"

namespace zek::trials {
namespace {

constexpr DayNumber kFirst = 46300;  // in October 2026
constexpr DayNumber kQuiet = 11;     // days without dated entries at the beginning
constexpr DayNumber kDated = 30;
constexpr DayNumber kDays = kQuiet + kDated + 31;  // the weeks after it show "never"

using Lines = std::vector<std::string>;

// Makes catalogues whose few times and values meet one another often.
class RandomCatalogues {
 public:
  explicit RandomCatalogues(unsigned seed) : random_(seed) {}

  Schedule Next(Generation generation) {
    const LineOwner owner{Below(4) == 0 ? "PLT1" : "TSC1", generation, {}};
    const CalendarYears years{generation, 93, 2099};
    const Lines weekdays =
        std::get<Lines>(BuildWeekday(Weekdays(), owner, {}, BuildStart::Afresh, '.'));
    const Lines calendar =
        std::get<Lines>(BuildCalendar(Calendar(), EmptyCalendarLayout(owner.name), generation));
    Lines exceptions = std::get<Lines>(BuildExceptions(Exceptions(), owner, {}, {}, '.'));
    std::shuffle(exceptions.begin(), exceptions.end(), random_);
    const bool known = Below(3) != 0;
    return ScheduleOf(ReadWeekday(weekdays, owner), ReadCalendar(calendar, years, 2026),
                      ReadExceptions(exceptions, owner), known ? "17" : ".", {});
  }

  int Below(int limit) { return std::uniform_int_distribution(0, limit - 1)(random_); }

 private:
  std::int16_t Time() {
    constexpr std::array<std::int16_t, 6> times = {0, 1, 420, 1020, 1439, 1440};
    return times.at(static_cast<std::size_t>(Below(6)));
  }
  float Value() { return static_cast<float>(Below(3)); }
  Moment Date() { return StartOf(kFirst + kQuiet + Below(kDated)); }

  WeekdayTable Weekdays() {
    WeekdayTable table;
    const int density = Below(4);
    for (auto& day : table.days) {
      for (std::size_t row = 0; row < kWeekdayRows; ++row) {
        if (Below(8) >= density) break;
        day[row] = {Time(), Below(3) == 0 ? kNoTime : Time(), Value(),
                    Below(3) == 0 ? kNoValue : Value()};
      }
    }
    return table;
  }
  CalendarTable Calendar() {
    CalendarTable table(2026);
    for (int left = Below(20); left > 0; --left) {
      const DateParts parts = DateOf(Date());
      const CalendarDate date{parts.year, parts.month - 1, parts.day};
      table.Add(date, date, static_cast<std::int16_t>(1 + Below(kCalendarDayTypes)));
    }
    return table;
  }
  ExceptionTable Exceptions() {
    ExceptionTable table;
    const auto used = static_cast<std::size_t>(Below(kExceptionRows + 1));
    for (std::size_t at = 0; at < used; ++at) {
      const Moment start = Date() + Time();
      const Moment stop = Below(3) == 0 ? Time() : start / 1440 * 1440 + StartOf(Below(3)) + Time();
      table.rows.at(at) = {true, start, stop, Below(3) == 0 ? kNoValue : Value(),
                           Below(3) == 0 ? kNoValue : Value()};
    }
    return table;
  }

  std::mt19937 random_;
};

// Compares a forecast with its replay; returns how many random moments were the same in everything.
class Comparison {
 public:
  Comparison(const Schedule& schedule, const Rule& rule)
      : forecast_(schedule, rule), replay_(schedule, rule, kFirst, kDays) {}

  bool SameTimeline() const {
    std::vector<Stretch> expected;
    std::optional<Moment> event = kFrom - 1;
    for (Moment now = kFrom; now < kTo; ++now) {
      const Replayed& minute = replay_.At(now);
      if (now == kFrom || minute.applied != expected.back().applied) {
        if (now > kFrom) expected.back().to = now;
        expected.push_back({now, kTo, minute.applied});
      }
      if (!minute.event) continue;
      if (event = forecast_.NextEvent(*event); event != now) return false;
    }
    return event && forecast_.NextEvent(*event).value_or(kTo) >= kTo &&
           forecast_.Timeline(kFrom, kTo) == expected;
  }

  bool SameAt(Moment moment) const {
    const Replayed& minute = replay_.At(moment);
    return forecast_.At(moment) == minute.applied &&
           forecast_.Beaten(moment) == replay_.Beaten(moment) &&
           forecast_.NextChange(moment) == NextChange(moment) &&
           std::max(forecast_.LastEvent(moment).value_or(kFrom), kFrom) == LastEvent(moment);
  }

  static constexpr Moment kFrom = StartOf(kFirst + kQuiet - 1);
  static constexpr Moment kDatedEnd = StartOf(kFirst + kQuiet + kDated);
  static constexpr Moment kTo = StartOf(kFirst + kDays);

 private:
  // An event before the time compared is only known to be one.
  Moment LastEvent(Moment moment) const {
    while (moment > kFrom && !replay_.At(moment).event) --moment;
    return moment;
  }
  std::optional<Moment> NextChange(Moment moment) const {
    const MaybeValue value = replay_.At(moment).applied.value;
    for (; moment < kTo; ++moment)
      if (replay_.At(moment).applied.value != value) return moment;
    return std::nullopt;
  }

  Forecast forecast_;
  Replay replay_;
};

bool Full() { return std::getenv("ZEKVIEW_FULL") != nullptr; }

// True if a replay of every minute finds another value in any variant.
bool ReplaysDiffer(const Schedule& with, const Schedule& without) {
  for (const Rule& rule : Rule::Variants()) {
    const Replay one(with, rule, kFirst, kDays);
    const Replay other(without, rule, kFirst, kDays);
    for (Moment now = Comparison::kFrom; now < Comparison::kTo; ++now)
      if (one.At(now).applied.value != other.At(now).applied.value) return true;
  }
  return false;
}

TEST(Forecast, KnowsWhatIsWithoutEffect) {
  RandomCatalogues random(2);
  const int lines = Full() ? 100 : 8;
  int right = 0;
  for (int number = 0; number < lines; ++number) {
    const Schedule with = random.Next(number % 2 == 0 ? Generation::Zek1 : Generation::Zek2);
    Doubt doubt{FindingKind::RowNoEffect,
                with.weekdayLines[static_cast<std::size_t>(random.Below(kWeekdayDays))][0]};
    if (number % 3 == 1 && !with.exceptions.empty())
      doubt = {FindingKind::ExceptionNoEffect, with.exceptions.front().number};
    if (number % 3 == 2 && !with.calendar.empty())
      doubt = {FindingKind::DateNoEffect, with.calendar.front().line};
    const bool differ = HaveEffect(with, doubt, DayOf(Comparison::kFrom));
    const Schedule without = Without(with, doubt);
    right += differ == ReplaysDiffer(with, without) ? 1 : 0;
  }
  EXPECT_EQ(right, lines);
  std::cout << "figure: lines with and without effect: " << right << " of " << lines << "\n";
}

TEST(Forecast, IsTheReplayOfEveryMinute) {
  const int catalogues = Full() ? 400 : 4;
  constexpr int moments = 160;  // of each catalogue and variant
  RandomCatalogues random(1);
  int right = 0;
  int all = 0;
  for (int number = 0; number < catalogues; ++number) {
    const Schedule schedule = random.Next(number % 2 == 0 ? Generation::Zek1 : Generation::Zek2);
    for (const Rule& rule : Rule::Variants()) {
      const Comparison comparison(schedule, rule);
      EXPECT_TRUE(comparison.SameTimeline()) << number << " " << rule.Text();
      for (int at = 0; at < moments; ++at, ++all) {
        constexpr auto minutes = static_cast<int>(Comparison::kDatedEnd - Comparison::kFrom);
        const Moment moment = Comparison::kFrom + random.Below(minutes);
        right += comparison.SameAt(moment) ? 1 : 0;
      }
    }
  }
  EXPECT_EQ(right, all);
  std::cout << "figure: moments as in a replay of every minute: " << right << " of " << all << "\n";
}

}  // namespace
}  // namespace zek::trials
