#include "Limits.h"

#include <algorithm>
#include <iomanip>

namespace zek::bench {

void FastestReporter::ReportRuns(const std::vector<Run>& runs) {
  std::vector<Run> fastest;
  for (const Run& run : runs) {
    if (run.error_occurred) {
      failed_ = true;
      fastest.push_back(run);
    }
    if (run.error_occurred || run.run_type != Run::RT_Iteration) continue;
    const double seconds = 1 / run.counters.at("units/s");
    const auto [known, isNew] = seconds_.try_emplace(run.run_name.function_name, seconds);
    if (!isNew && known->second <= seconds) continue;
    known->second = seconds;
    fastest.assign(1, run);
  }
  ConsoleReporter::ReportRuns(fastest);
}

bool FastestReporter::PrintLimits(const std::vector<Limit>& limits, std::ostream& out) const {
  bool kept = !failed_;
  out << std::fixed;
  for (const Limit& limit : limits) {
    const auto measured = seconds_.find(limit.measured);
    const auto peer = seconds_.find(limit.peer);
    if (measured == seconds_.end() || peer == seconds_.end()) continue;
    const double ratio = measured->second / peer->second;
    const bool ok = ratio <= limit.limit;
    kept = kept && ok;
    out << limit.what << ": " << std::setprecision(2) << ratio << std::defaultfloat << " (limit "
        << limit.limit << std::fixed << ") " << (ok ? "ok" : "EXCEEDED") << '\n';
  }
  return kept;
}

}  // namespace zek::bench
