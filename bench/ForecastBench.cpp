#include <random>
#include <vector>

#include "Limits.h"
#include "forecast/Forecast.h"

namespace zek::bench {
namespace {

constexpr DayNumber kFirst = 46023;  // 2026-01-01
constexpr DayNumber kYear = 365;
constexpr std::size_t kExceptions = 201;

std::mt19937 random(1);  // NOLINT(cert-msc51-cpp): the same catalogues every time

std::int64_t Below(std::int64_t limit) {
  return std::uniform_int_distribution<std::int64_t>(0, limit - 1)(random);
}

// Fills all rows of all day types, all dates, and every line that exceptions can have.
Schedule FullSchedule() {
  Schedule schedule;
  int line = 1000;
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    for (std::size_t row = 0; row < kWeekdayRows; ++row) {
      const auto start = static_cast<std::int16_t>(90 * row + day);
      const auto value = static_cast<float>(row);
      schedule.weekdays.days.at(day).at(row) = {start, static_cast<std::int16_t>(start + 45), value,
                                                value + 0.5F};
      schedule.weekdayLines.at(day).at(row) = line++;
    }
  }
  for (std::size_t at = 0; at < kCalendarEntries; ++at) {
    const auto type = static_cast<std::size_t>(Below(kWeekdayDays));
    schedule.calendar.push_back({kFirst + Below(2 * kYear), type, line++});
  }
  for (std::size_t at = 0; at < kExceptions; ++at) {
    const Moment start = StartOf(kFirst) + Below(StartOf(kYear));
    const Moment stop = start + Below(StartOf(2));
    schedule.exceptions.push_back({{true, start, stop, static_cast<float>(at), 0}, line++});
  }
  return schedule;
}

void LoopOverEntries(benchmark::State& state, const Schedule& schedule) {
  for (auto _ : state) {
    Moment sum = 0;
    for (const auto& day : schedule.weekdays.days)
      for (const WeekdayRow& row : day) sum += row.start + row.stop;
    for (const DatedType& dated : schedule.calendar) sum += dated.day;
    for (const auto& [row, line] : schedule.exceptions) sum += row.start + row.stop;
    benchmark::DoNotOptimize(sum);
  }
}

}  // namespace

void AddForecast(std::vector<Limit>& limits) {
  const Schedule schedule = FullSchedule();
  const Forecast forecast(schedule, {});
  AddBenchmark("forecast/loop", 1, [schedule](auto& state) { LoopOverEntries(state, schedule); });
  AddBenchmark("forecast/moment", 1, [forecast](auto& state) {
    for (auto _ : state) {
      const Moment moment = StartOf(kFirst) + Below(StartOf(kYear));
      benchmark::DoNotOptimize(forecast.At(moment));
      benchmark::DoNotOptimize(forecast.LastEvent(moment));
      benchmark::DoNotOptimize(forecast.NextChange(moment));
      benchmark::DoNotOptimize(forecast.Beaten(moment));
    }
  });
  AddBenchmark("forecast/year", 1, [forecast](auto& state) {
    for (auto _ : state)
      benchmark::DoNotOptimize(forecast.Timeline(StartOf(kFirst), StartOf(kFirst + kYear)));
  });
  limits.push_back({"a moment", "forecast/moment", "forecast/loop", 20});
  limits.push_back({"a year", "forecast/year", "forecast/loop", 12000});
}

}  // namespace zek::bench
