#include <algorithm>

#include "commands/Commands.h"
#include "import/ImportText.h"
#include "lang/TextNumbers.h"
#include "plan/Applying.h"
#include "plan/ChangeList.h"
#include "plan/OpenPlan.h"
#include "plan/PlanFile.h"
#include "plan/Planning.h"
#include "text/Fields.h"
#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

ExitStatus Fail(Console& console, const std::string& why) {
  console.err << "zekview-cli: " << Utf8FromWindows1252(why) << '\n';
  return kFailed;
}

// Prints the line of each catalogue as soon as it is known, and counts the words.
class PlanPrinter {
 public:
  explicit PlanPrinter(Console& console) : console_(console) {}

  void Print(const PlanLine& line) {
    console_.out << Utf8FromWindows1252(line.Text()) << '\n' << std::flush;
    ++counts_.at(static_cast<std::size_t>(line.word));
  }

  std::size_t Count(PlanWord word) const { return counts_.at(static_cast<std::size_t>(word)); }

  void PrintTotals(std::initializer_list<PlanWord> words) {
    console_.out << "total";
    for (const PlanWord word : words) console_.out << '\t' << Count(word) << ' ' << TextOf(word);
    console_.out << '\n';
  }

 private:
  Console& console_;
  std::array<std::size_t, 8> counts_{};
};

// Returns nothing, after a message, if the file can't be read or is no whole plan.
std::optional<PlanReading> ReadPlan(Console& console, const std::string& file) {
  const std::optional<std::string> bytes = ReadFileOperand(console, file);
  if (!bytes) return std::nullopt;
  PlanReading reading = ReadPlanFile(*bytes);
  if (reading.bad == 0) return reading;
  Fail(console, DamagedText(console.proc, file, reading.bad));
  return std::nullopt;
}

// Returns nothing, after a message, if the list can't be read or says nothing.
std::optional<ChangeList> ReadChanges(Console& console, const std::string& file) {
  const std::optional<std::string> bytes = ReadFileOperand(console, file);
  if (!bytes) return std::nullopt;
  ChangeList list = ReadChangeList(*bytes);
  const Messages messages = console.proc.ToUser();
  const std::string name = Windows1252FromUtf8(file);
  if (list.bad) {
    Fail(console,
         messages.Text(text::kPlanBadLine, {name, std::to_string(list.bad->line),
                                            messages.Text(list.bad->text, {list.bad->value})}));
    return std::nullopt;
  }
  if (!list.changes.empty()) return list;
  Fail(console, messages.Text(text::kPlanNoChanges, {name}));
  return std::nullopt;
}

// The nodes in the operands and in the file of nodes.
std::optional<std::vector<std::string>> NodesOf(Console& console, const Arguments& arguments) {
  std::vector<std::string> nodes;
  for (std::size_t i = 1; i < arguments.operands.size(); ++i)
    nodes.push_back(Windows1252FromUtf8(arguments.operands[i]));
  if (arguments.nodes.empty()) return nodes;
  const std::optional<std::string> bytes = ReadFileOperand(console, arguments.nodes);
  if (!bytes) return std::nullopt;
  const std::string file = DecodedText(*bytes);
  for (std::string_view rest = file; !rest.empty();) {
    const std::string_view node = Trim(TakeLine(rest));
    if (!node.empty()) nodes.emplace_back(node);
  }
  return nodes;
}

// Writes the plan and prints the totals.
ExitStatus EndPlan(Console& console, const Arguments& arguments, const Plan& plan,
                   PlanPrinter& printer) {
  ZV_Proc& proc = console.proc;
  if (proc.turn.Quitting()) return kFailed;
  if (const auto error = proc.files.Write(arguments.out, BuildPlanFile(plan)))
    return Fail(console, FileMessage(proc.texts, *error));
  printer.PrintTotals({PlanWord::Change, PlanWord::Unchanged, PlanWord::Refused});
  console.out << "time\t" << PlanSeconds(plan, proc.Numbers()) << " s\n";
  if (printer.Count(PlanWord::Refused) > 0) return kFailed;
  return arguments.exitCode && !plan.catalogues.empty() ? kWouldChange : kDone;
}

ExitStatus PlanBack(Console& console, const Arguments& arguments) {
  const std::optional<PlanReading> reading = ReadPlan(console, arguments.revert);
  if (!reading) return kFailed;
  console.hasInput();
  const StartedNote started(console.proc.files, arguments.revert, reading->checksum);
  PlanPrinter printer(console);
  Planner planner(console.proc, [&printer](const PlanLine& line) { printer.Print(line); });
  return EndPlan(console, arguments, planner.Revert(reading->plan, started), printer);
}

}  // namespace

ExitStatus MakePlan(Console& console, const Arguments& arguments) {
  if (arguments.out.empty()) return Refuse(console, "plan: --out PLAN is missing");
  if (console.proc.files.Exists(StartedNote::PathOf(arguments.out)))
    return Fail(console, StartedText(console.proc, arguments.out));
  const bool back = !arguments.revert.empty();
  if (back != arguments.operands.empty() || (back && !arguments.nodes.empty()))
    return Refuse(console, "plan: give either CHANGES and nodes or --revert PLAN");
  if (back) return PlanBack(console, arguments);
  const auto list = ReadChanges(console, arguments.operands.front());
  if (!list) return kFailed;
  const auto nodes = NodesOf(console, arguments);
  if (!nodes) return kFailed;
  if (nodes->empty()) return Refuse(console, "plan: a node is missing");
  console.hasInput();
  PlanPrinter printer(console);
  Planner planner(console.proc, [&printer](const PlanLine& line) { printer.Print(line); });
  return EndPlan(console, arguments, planner.Make(list->changes, *nodes), printer);
}

ExitStatus ApplyPlan(Console& console, const Arguments& arguments) {
  ZV_Proc& proc = console.proc;
  OpenedPlan opened = OpenPlan(proc, arguments.operands.front());
  if (!opened.why.empty()) return Fail(console, opened.why);
  console.hasInput();
  PlanPrinter printer(console);
  Applier applier(proc, *opened.started, [&printer](const PlanLine& line) { printer.Print(line); });
  applier.Run(opened.plan);
  printer.PrintTotals({PlanWord::Done, PlanWord::Already, PlanWord::Stale, PlanWord::Failed,
                       PlanWord::Refused, PlanWord::Untried});
  const std::size_t well = printer.Count(PlanWord::Done) + printer.Count(PlanWord::Already);
  return well == opened.plan.catalogues.size() ? kDone : kFailed;
}

}  // namespace zek::cli
