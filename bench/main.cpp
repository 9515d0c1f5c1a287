#include <array>
#include <iostream>
#include <vector>

#include "Limits.h"

// zekview-bench [OPTION...]: compares the core with reference code and prints every figure with a
// limit as a quotient. Accepts the options of the benchmark framework, which override the defaults
// set here. Returns 1 if a limit is exceeded.
int main(int argc, char** argv) {
  std::vector<char*> arguments(argv, argv + argc);
  std::array<std::string, 3> defaults = {"--benchmark_repetitions=5", "--benchmark_min_time=0.1",
                                         "--benchmark_enable_random_interleaving=true"};
  for (std::string& option : defaults) {
    arguments.insert(arguments.begin() + 1, option.data());
  }
  int count = static_cast<int>(arguments.size());
  benchmark::Initialize(&count, arguments.data());
  if (benchmark::ReportUnrecognizedArguments(count, arguments.data())) return 2;

  std::vector<zek::bench::Limit> limits;
  zek::bench::AddReplyHandler(limits);
  zek::bench::AddWeekday(limits);
  zek::bench::AddCalendar(limits);
  zek::bench::AddException(limits);
  zek::bench::AddForecast(limits);
  zek::bench::AddBatch(limits);
  zek::bench::FastestReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  std::cout << '\n';
  return reporter.PrintLimits(limits, std::cout) ? 0 : 1;
}
