#include "cli/CheckCommand.h"

#include <algorithm>

#include "cli/FileOperand.h"
#include "editors/calendar/CalendarEditor.h"
#include "editors/calendar/CalendarRecords.h"
#include "editors/exception/ExceptionEditor.h"
#include "editors/exception/ExceptionRecords.h"
#include "editors/weekday/WeekdayEditor.h"
#include "editors/weekday/WeekdayRecords.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

// The first three "/"-separated fields of the node's text in front of "[".
RecordLabels LabelsOf(const TreeNode& node) {
  std::string_view label = GetField(node.Text, 0, "[");
  label.remove_prefix(std::min(label.find_first_not_of(' '), label.size()));
  return {std::string(GetField(label, 0, "/")), std::string(GetField(label, 1, "/")),
          std::string(GetField(label, 2, "/"))};
}

void Print(Console& console, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) console.out << Utf8FromWindows1252(line) << '\n';
}

// What became of a catalogue text: its table as export records, or the lines built from it.
struct Checked {
  std::size_t linesLost = 0;  // lines that saving would drop
  std::vector<std::string> records;
  BuiltLines rebuilt;
};

Checked CheckWeekday(Console& console, const RecordLabels& labels) {
  const ZV_Proc& proc = console.proc;
  const char separator = proc.settings.DecimalSeparator;
  const std::vector<std::string>& lines = proc.transfer.CatalogueLines;
  const std::string& name = proc.selection.TscName;
  const WeekdayReading reading = ReadWeekday(lines, name);
  if (reading.refused) ShowRefused(*reading.refused, console.prompts, proc.texts);
  return {reading.linesLost, WeekdayRecords(reading.table, labels, separator),
          BuildWeekday(reading.table, name, lines, BuildStart::Afresh, separator)};
}

Checked CheckCalendar(Console& console, const RecordLabels& labels) {
  const ZV_Proc& proc = console.proc;
  const Generation generation = proc.topics[proc.selection.CurrentObject].ControllerGeneration();
  const CalendarYears years = YearsOf(proc.settings, generation);
  const CalendarReading reading =
      ReadCalendar(proc.transfer.CatalogueLines, years, CalendarYears::kFirst);
  for (const RefusedDates& refused : reading.refused)
    ShowRefused(refused, console.prompts, proc.texts);
  return {reading.linesLost, CalendarRecords(reading.table, labels),
          BuildCalendar(reading.table, proc.selection.TscName, generation)};
}

// Nothing when a setting that the lines are numbered by can't be used, which was told.
std::optional<Checked> CheckExceptions(Console& console, const RecordLabels& labels) {
  const ZV_Proc& proc = console.proc;
  const char separator = proc.settings.DecimalSeparator;
  const std::vector<std::string>& lines = proc.transfer.CatalogueLines;
  const ExceptionOwner owner{proc.selection.TscName,
                             proc.topics[proc.selection.CurrentObject].ControllerGeneration()};
  const auto options = ReadExceptionOptions(proc.Numbers(), owner.generation);
  if (!options) return std::nullopt;
  const ExceptionReading reading = ReadExceptions(lines, owner);
  for (const RefusedException& refused : reading.refused)
    ShowRefused(refused, console.prompts, proc.texts);
  return Checked{reading.linesLost, ExceptionRecords(reading.table, labels, separator),
                 BuildExceptions(reading.table, owner, lines, *options, separator)};
}

std::optional<Checked> CheckKind(Console& console, Catalogue catalogue,
                                 const RecordLabels& labels) {
  switch (catalogue) {
    case Catalogue::Wdc:
      return CheckWeekday(console, labels);
    case Catalogue::Sdc:
      return CheckCalendar(console, labels);
    case Catalogue::Ovc:
      break;
  }
  return CheckExceptions(console, labels);
}

}  // namespace

ExitStatus Check(Console& console, Catalogue catalogue, std::size_t node,
                 const Arguments& arguments) {
  ZV_Proc& proc = console.proc;
  const std::optional<std::string> text = ReadFileOperand(console, arguments.operands[2]);
  if (!text) return kWrongUsage;
  if (!TakeLocalCopy(proc, *text, Windows1252FromUtf8(arguments.operands[2]))) return kFailed;
  const auto checked = CheckKind(console, catalogue, LabelsOf(proc.tree[node]));
  if (!checked) return kFailed;
  const ExitStatus status = checked->linesLost == 0 ? kDone : kFailed;
  if (status != kDone) {
    console.err << "zekview-cli: lines that a saved catalogue would not hold: "
                << checked->linesLost << '\n';
  }
  if (!arguments.rebuild) {
    Print(console, checked->records);
    return status;
  }
  if (const auto* const error = std::get_if<BuildError>(&checked->rebuilt)) {
    console.prompts.Show(Icon::Exclamation, error->MessageIn(proc.texts));
    return kFailed;
  }
  Print(console, std::get<std::vector<std::string>>(checked->rebuilt));
  return status;
}

}  // namespace zek::cli
