#include "export/CatalogueRecords.h"

#include <algorithm>

#include "editors/CalendarEditor.h"
#include "editors/ExceptionEditor.h"
#include "editors/WeekdayEditor.h"
#include "formats/ExportRecords.h"
#include "text/Fields.h"

namespace zek {
namespace {

// What reading a catalogue needs besides its lines.
struct Context {
  const CatalogueId& id;
  const RecordLabels& labels;
  const Settings& settings;
  const NumberReader& numbers;

  char Separator() const { return settings.DecimalSeparator; }
  template <class Refused>
  void Show(const Refused& refused) const {
    ShowRefused(refused, numbers.messages.prompts, numbers.messages.texts);
  }
};

LoadedCatalogue LoadWeekday(const std::vector<std::string>& lines, const Context& context) {
  const char separator = context.Separator();
  const WeekdayReading reading = ReadWeekday(lines, context.id.Owner());
  for (const RefusedLine& refused : reading.refused) context.Show(refused);
  const auto rebuild = [lines, owner = context.id.Owner(), table = reading.table, separator] {
    return BuildWeekday(table, owner, lines, BuildStart::Afresh, separator);
  };
  return {reading.linesLost, WeekdayRecords(reading.table, context.labels, separator), rebuild};
}

LoadedCatalogue LoadCalendar(const std::vector<std::string>& lines, const Context& context) {
  const Generation generation = context.id.generation;
  const CalendarReading reading =
      ReadCalendar(lines, YearsOf(context.settings, generation), CalendarYears::kFirst);
  for (const RefusedDates& refused : reading.refused) context.Show(refused);
  const CalendarLayout layout = reading.layout.value_or(EmptyCalendarLayout(context.id.control));
  const auto rebuild = [layout, table = reading.table, generation] {
    return BuildCalendar(table, layout, generation);
  };
  return {reading.linesLost, CalendarRecords(reading.table, context.labels), rebuild};
}

LoadedCatalogue LoadExceptions(const std::vector<std::string>& lines, const Context& context) {
  const char separator = context.Separator();
  const LineOwner owner = context.id.Owner();
  const ExceptionReading reading = ReadExceptions(lines, owner);
  for (const RefusedException& refused : reading.refused) context.Show(refused);
  const auto rebuild = [lines, table = reading.table, owner, separator,
                        numbers = context.numbers]() -> std::optional<BuiltLines> {
    const auto options = ReadExceptionOptions(numbers, owner.generation);
    if (!options) return std::nullopt;
    return BuildExceptions(table, owner, lines, *options, separator);
  };
  return {reading.linesLost, ExceptionRecords(reading.table, context.labels, separator), rebuild};
}

}  // namespace

RecordLabels LabelsOf(const TreeNode& node) {
  std::string_view label = GetField(node.Text, 0, "[");
  label.remove_prefix(std::min(label.find_first_not_of(' '), label.size()));
  return {std::string(GetField(label, 0, "/")), std::string(GetField(label, 1, "/")),
          std::string(GetField(label, 2, "/"))};
}

LoadedCatalogue LoadCatalogue(const CatalogueId& id, const CatalogueContent& content,
                              const RecordLabels& labels, const Settings& settings,
                              const NumberReader& numbers) {
  const Context context{id, labels, settings, numbers};
  switch (id.catalogue) {
    case Catalogue::Wdc:
      return LoadWeekday(content.lines, context);
    case Catalogue::Sdc:
      return LoadCalendar(content.lines, context);
    case Catalogue::Ovc:
      break;
  }
  return LoadExceptions(content.lines, context);
}

}  // namespace zek
