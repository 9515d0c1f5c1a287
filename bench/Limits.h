#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace zek::bench {

/// One figure that has a limit: the processor time of one benchmark divided by another's, each of
/// them over what it did (bytes or entries).
struct Limit {
  std::string what;      // as the table shows it
  std::string measured;  // names of benchmarks
  std::string peer;
  double limit = 0;  // the quotient must not be above it
};

/// Prints only the fastest repetition of each benchmark, which other work on the machine disturbs
/// least, and keeps it.
class FastestReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  /// One line for each limit whose two benchmarks have run. False when a limit is exceeded or a
  /// benchmark failed.
  bool PrintLimits(const std::vector<Limit>& limits, std::ostream& out) const;

 private:
  std::map<std::string, double> seconds_;  // per byte or entry
  bool failed_ = false;
};

/// Registers a benchmark whose every iteration does `units` bytes or entries.
template <class Function>
void AddBenchmark(const std::string& name, double units, Function function) {
  benchmark::RegisterBenchmark(name.c_str(), [units, function](benchmark::State& state) {
    function(state);
    state.counters["units/s"] =
        benchmark::Counter(units, benchmark::Counter::kIsIterationInvariantRate);
  })->Unit(benchmark::kMillisecond);
}

/// Each adds its benchmarks and their limits.
void AddReplyHandler(std::vector<Limit>& limits);
void AddWeekday(std::vector<Limit>& limits);
void AddCalendar(std::vector<Limit>& limits);
void AddException(std::vector<Limit>& limits);
void AddBatch(std::vector<Limit>& limits);

}  // namespace zek::bench
