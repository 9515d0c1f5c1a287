#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace zek::bench {

/// A figure with a limit: the processor time of one benchmark divided by that of another, each per
/// byte or per entry.
struct Limit {
  std::string what;      // its name in the table
  std::string measured;  // names of benchmarks
  std::string peer;
  double limit = 0;  // the highest quotient allowed
};

/// Prints and keeps only the fastest repetition of each benchmark, the one least disturbed by other
/// work on the machine.
class FastestReporter final : public benchmark::ConsoleReporter {
 public:
  void ReportRuns(const std::vector<Run>& runs) override;

  /// Prints one line for each limit whose two benchmarks have run. Returns false if a limit is
  /// exceeded or a benchmark failed.
  bool PrintLimits(const std::vector<Limit>& limits, std::ostream& out) const;

 private:
  std::map<std::string, double> seconds_;  // per byte or entry
  bool failed_ = false;
};

/// Registers a benchmark; each of its iterations processes `units` bytes or entries.
template <class Function>
void AddBenchmark(const std::string& name, double units, Function function) {
  benchmark::RegisterBenchmark(name.c_str(), [units, function](benchmark::State& state) {
    function(state);
    state.counters["units/s"] =
        benchmark::Counter(units, benchmark::Counter::kIsIterationInvariantRate);
  })->Unit(benchmark::kMillisecond);
}

/// Each of these adds its benchmarks and their limits.
void AddReplyHandler(std::vector<Limit>& limits);
void AddWeekday(std::vector<Limit>& limits);
void AddCalendar(std::vector<Limit>& limits);
void AddException(std::vector<Limit>& limits);
void AddForecast(std::vector<Limit>& limits);
void AddBatch(std::vector<Limit>& limits);

}  // namespace zek::bench
