#include "export/LoadedCatalogue.h"

#include <algorithm>

#include "editors/CalendarEditor.h"
#include "editors/ExceptionEditor.h"
#include "editors/WeekdayEditor.h"
#include "formats/CalendarRecords.h"
#include "formats/ExceptionRecords.h"
#include "formats/WeekdayRecords.h"
#include "text/Fields.h"

namespace zek {
namespace {

Generation GenerationOf(const ZV_Proc& proc) {
  return proc.topics[proc.selection.CurrentObject].TopicType;
}

LoadedCatalogue LoadWeekday(const ZV_Proc& proc, const RecordLabels& labels) {
  const char separator = proc.settings.DecimalSeparator;
  const WeekdayReading reading = ReadWeekday(proc.transfer.CatalogueLines, proc.selection.TscName);
  if (reading.refused) ShowRefused(*reading.refused, proc.outside.prompts, proc.texts);
  const auto rebuild = [&proc, table = reading.table, separator] {
    return BuildWeekday(table, proc.selection.TscName, proc.transfer.CatalogueLines,
                        BuildStart::Afresh, separator);
  };
  return {reading.linesLost, WeekdayRecords(reading.table, labels, separator), rebuild};
}

LoadedCatalogue LoadCalendar(const ZV_Proc& proc, const RecordLabels& labels) {
  const Generation generation = GenerationOf(proc);
  const CalendarReading reading = ReadCalendar(
      proc.transfer.CatalogueLines, YearsOf(proc.settings, generation), CalendarYears::kFirst);
  for (const RefusedDates& refused : reading.refused)
    ShowRefused(refused, proc.outside.prompts, proc.texts);
  const auto rebuild = [&proc, table = reading.table, generation] {
    return BuildCalendar(table, proc.selection.TscName, generation);
  };
  return {reading.linesLost, CalendarRecords(reading.table, labels), rebuild};
}

LoadedCatalogue LoadExceptions(const ZV_Proc& proc, const RecordLabels& labels) {
  const char separator = proc.settings.DecimalSeparator;
  const ExceptionOwner owner{proc.selection.TscName, GenerationOf(proc)};
  const ExceptionReading reading = ReadExceptions(proc.transfer.CatalogueLines, owner);
  for (const RefusedException& refused : reading.refused)
    ShowRefused(refused, proc.outside.prompts, proc.texts);
  const auto rebuild = [&proc, table = reading.table, owner,
                        separator]() -> std::optional<BuiltLines> {
    const auto options = ReadExceptionOptions(proc.Numbers(), owner.generation);
    if (!options) return std::nullopt;
    return BuildExceptions(table, owner, proc.transfer.CatalogueLines, *options, separator);
  };
  return {reading.linesLost, ExceptionRecords(reading.table, labels, separator), rebuild};
}

}  // namespace

RecordLabels LabelsOf(const TreeNode& node) {
  std::string_view label = GetField(node.Text, 0, "[");
  label.remove_prefix(std::min(label.find_first_not_of(' '), label.size()));
  return {std::string(GetField(label, 0, "/")), std::string(GetField(label, 1, "/")),
          std::string(GetField(label, 2, "/"))};
}

LoadedCatalogue LoadCatalogue(const ZV_Proc& proc, Catalogue catalogue,
                              const RecordLabels& labels) {
  switch (catalogue) {
    case Catalogue::Wdc:
      return LoadWeekday(proc, labels);
    case Catalogue::Sdc:
      return LoadCalendar(proc, labels);
    case Catalogue::Ovc:
      break;
  }
  return LoadExceptions(proc, labels);
}

}  // namespace zek
