#include <utility>

#include "catalogue/CopyStates.h"
#include "commands/Commands.h"
#include "commands/ControlSchedule.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "report/Report.h"

namespace zek::cli {
namespace {

// Collects what a report tells of each control.
class Collector {
 public:
  Collector(Console& console, const FindingContext& context)
      : console_(console), context_(context), reader_(console) {}

  void Add(std::size_t node) {
    std::optional<ControlTables> tables = reader_.Read(node);
    failed_ = failed_ || !tables;
    if (!tables) return;
    ReportedControl control;
    const ZV_Proc& proc = console_.proc;
    control.node = NodeName(proc.tree, proc.topics, node);
    control.name = proc.tree[node].Text;
    control.reads = Reads();
    control.values =
        ReadPickList(proc.profile, proc.selection.PickListTable, context_.decimalSeparator);
    if (reader_.HadAllCopies()) control.findings = FindingsOf(*tables, context_);
    control.tables = *std::move(tables);
    controls_.push_back(std::move(control));
  }

  const std::vector<ReportedControl>& Controls() const { return controls_; }
  ExitStatus Status() const { return failed_ ? kFailed : reader_.Status(); }

 private:
  // Of each catalogue of the selected control, when and from where it was read.
  std::vector<std::string> Reads() const {
    std::vector<std::string> reads;
    CopyStates states(console_.proc.copies, console_.proc.records);
    for (const auto& [catalogue, name] : {std::pair{Catalogue::Wdc, text::kTitleWeekdays},
                                          std::pair{Catalogue::Sdc, text::kTitleCalendar},
                                          std::pair{Catalogue::Ovc, text::kTitleExceptions}})
      AddRead(reads, states.Of(console_.proc.selection.Id(catalogue)), console_.proc.Text(name));
    return reads;
  }

  void AddRead(std::vector<std::string>& reads, const CopyState& state,
               const std::string& name) const {
    const ZV_Proc& proc = console_.proc;
    const Topic& topic = proc.topics[proc.selection.CurrentObject];
    const std::int32_t number = !state.exists        ? text::kReportMissing
                                : state.time.empty() ? text::kReportReadUnknown
                                                     : text::kReportRead;
    const std::string where = topic.TopicName + " " + topic.Address;
    reads.push_back(Message(proc.Text(number), {name, state.time, where}));
    if (state.unsent) reads.push_back(Message(proc.Text(text::kReportUnsent), {name}));
  }

  Console& console_;
  const FindingContext& context_;
  ControlReader reader_;
  std::vector<ReportedControl> controls_;
  bool failed_ = false;
};

}  // namespace

ExitStatus WriteReport(Console& console, const Arguments& arguments) {
  if (arguments.out.empty()) return Refuse(console, "report needs --out FILE");
  const auto nodes = ControlOperands(console, arguments.operands);
  if (!nodes) return kWrongUsage;
  const std::optional<DayNumber> today = TodayFor(console, arguments);
  if (!today) return kWrongUsage;
  const int year = arguments.year.empty() ? DateOf(StartOf(*today)).year : YearIn(arguments.year);
  if (year == 0) return Refuse(console, arguments.year + " is no year from 1990 to 2099");
  console.hasInput();
  const ZV_Proc& proc = console.proc;
  const Settings& settings = proc.settings;
  const FindingContext findings{*today, settings.SwedishHolidays, settings.DecimalSeparator};
  Collector collector(console, findings);
  for (const std::size_t node : *nodes) collector.Add(node);
  if (collector.Controls().empty()) return kFailed;
  const ReportContext context{proc.texts, *today, year, settings.DecimalSeparator};
  const auto error = proc.files.Write(arguments.out, ReportOf(collector.Controls(), context));
  if (error) console.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *error));
  return error ? kFailed : collector.Status();
}

}  // namespace zek::cli
