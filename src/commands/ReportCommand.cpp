#include "app/ReportCollector.h"
#include "commands/Commands.h"
#include "commands/ControlSchedule.h"
#include "lang/Messages.h"

namespace zek::cli {

ExitStatus WriteReport(Console& console, const Arguments& arguments) {
  if (arguments.out.empty()) return Refuse(console, "report needs --out FILE");
  const auto nodes = ControlOperands(console, arguments.operands);
  if (!nodes) return kWrongUsage;
  if (nodes->empty()) return Refuse(console, "report: there is no time control below these nodes");
  const std::optional<DayNumber> today = TodayFor(console, arguments);
  if (!today) return kWrongUsage;
  const int year = arguments.year.empty() ? DateOf(StartOf(*today)).year : YearIn(arguments.year);
  if (year == 0) return Refuse(console, arguments.year + " is no year from 1990 to 2099");
  console.hasInput();
  ReportCollector collector(console.proc, SourceFor(console), *today);
  bool failed = false;
  for (const std::size_t node : *nodes) failed = !collector.Add(node) || failed;
  if (collector.IsEmpty()) return kFailed;
  const auto error = console.proc.files.Write(arguments.out, collector.Page(year));
  if (error) console.prompts.Show(Icon::Exclamation, FileMessage(console.proc.texts, *error));
  return error || failed || !collector.Complete() ? kFailed : kDone;
}

}  // namespace zek::cli
