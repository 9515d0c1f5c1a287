#include "cli/CheckCommand.h"

#include <algorithm>

#include "cli/FileOperand.h"
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

}  // namespace

ExitStatus Check(Console& console, std::size_t node, const Arguments& arguments) {
  ZV_Proc& proc = console.proc;
  const std::optional<std::string> text = ReadFileOperand(console, arguments.operands[2]);
  if (!text) return kWrongUsage;
  if (!TakeLocalCopy(proc, *text, Windows1252FromUtf8(arguments.operands[2]))) return kFailed;
  const std::vector<std::string>& lines = proc.transfer.CatalogueLines;
  const char separator = proc.settings.DecimalSeparator;
  const std::string& name = proc.selection.TscName;
  const WeekdayReading reading = ReadWeekday(lines, name);
  if (reading.refused) {
    ShowRefused(*reading.refused, console.prompts, proc.texts);
    console.err << "zekview-cli: lines not read: " << reading.linesLost << '\n';
  }
  if (!arguments.rebuild) {
    Print(console, WeekdayRecords(reading.table, LabelsOf(proc.tree[node]), separator));
    return reading.refused ? kFailed : kDone;
  }
  const BuiltLines built = BuildWeekday(reading.table, name, lines, BuildStart::Afresh, separator);
  if (const auto* const error = std::get_if<BuildError>(&built)) {
    console.prompts.Show(Icon::Exclamation, error->MessageIn(proc.texts));
    return kFailed;
  }
  Print(console, std::get<std::vector<std::string>>(built));
  return reading.refused ? kFailed : kDone;
}

}  // namespace zek::cli
