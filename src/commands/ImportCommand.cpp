#include <algorithm>
#include <array>
#include <chrono>

#include "app/StartSession.h"
#include "commands/Commands.h"
#include "forecast/MomentText.h"
#include "formats/CatalogueFields.h"
#include "import/CalendarPreview.h"
#include "import/ImportFile.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

std::chrono::milliseconds Elapsed() {
  return std::chrono::duration_cast<std::chrono::milliseconds>(
      std::chrono::steady_clock::now().time_since_epoch());
}

// The key of a date such as 2026-12-24; nothing for another text.
std::optional<std::int32_t> KeyOf(const std::string& text) {
  const std::optional<DayNumber> day = ParseDay(text);
  if (!day) return std::nullopt;
  const DateParts parts = DateOf(*day * kMinutesOfDay);
  return ImportKey({parts.year, parts.month - 1, parts.day});
}

std::string TypeName(std::int16_t type) {
  return std::string(kDayKeys.at(static_cast<std::size_t>(type) - 1));
}

// What --as, --from and --to say.
struct ImportOrder {
  std::int16_t type = kNoDayType;
  ImportWindow window;
};

// Nothing, after a message, if one of them is wrong.
std::optional<ImportOrder> OrderOf(Console& console, const CatalogueId& id,
                                   const Arguments& arguments) {
  const auto refuse = [&console](const std::string& why) {
    Refuse(console, "import: " + why);
    return std::nullopt;
  };
  if (id.catalogue != Catalogue::Sdc) return refuse("only into sdc");
  const auto* const type =
      std::find(kDayKeys.begin(), kDayKeys.end(), UpperCase(arguments.dayType));
  if (type == kDayKeys.end()) return refuse("--as needs a day type, such as SD1");
  const CalendarYears years = YearsOf(console.proc.settings, id.generation);
  ImportOrder order;
  order.type = static_cast<std::int16_t>(type - kDayKeys.begin() + 1);
  order.window.years = years;
  order.window.last = ImportKey({years.Last(), 11, 31});
  order.window.lastOfEndless = console.proc.now().year + kCalendarYears - 1;
  order.window.lastIsAsked = !arguments.to.empty();
  const std::array<std::pair<const std::string&, std::int32_t&>, 2> ends{
      {{arguments.from, order.window.first}, {arguments.to, order.window.last}}};
  for (const auto& [text, end] : ends) {
    if (text.empty()) continue;
    const std::optional<std::int32_t> key = KeyOf(text);
    if (!key) return refuse(text + " is no date, such as 2026-12-07");
    end = *key;
  }
  if (order.window.first > order.window.last) return refuse("--from is after --to");
  return order;
}

class Importer {
 public:
  Importer(Console& console, const CatalogueId& id, const ImportOrder& order)
      : console_(console), proc_(console.proc), id_(id), order_(order) {}

  ExitStatus Run(const ImportedDates& imported, bool write) {
    if (imported.refused) return Fail(imported.refused.In(proc_.texts));
    const std::optional<CatalogueContent> content = Base(write);
    if (!content) return kFailed;
    const CalendarReading reading =
        ReadCalendar(content->lines, order_.window.years, CalendarYears::kFirst);
    const auto lines = PreviewImport(reading.table, imported.dates, order_.type);
    Print(lines, imported.skipped);
    const std::optional<CalendarTable> table = WithImported(reading.table, lines);
    if (!table)
      return Fail(proc_.ToUser().Text(text::kCalendarFull, {std::to_string(kCalendarEntries)}));
    const BuiltLines built = BuildCalendar(
        *table, reading.layout.value_or(EmptyCalendarLayout(id_.control)), id_.generation);
    if (const auto* const error = std::get_if<BuildError>(&built))
      return Fail(error->MessageIn(proc_.texts));
    const bool changes = !SameCalendar()(*table, reading.table);
    const std::size_t lost = reading.linesLost + content->linesDropped;
    if (changes && lost > 0)
      return Fail(proc_.ToUser().Text(text::kImportWouldLose, {std::to_string(lost)}));
    if (write && changes && !Store(std::get<std::vector<std::string>>(built))) return kFailed;
    return imported.skipped.empty() ? kDone : kFailed;
  }

 private:
  // Without --write a fetched calendar is not kept either.
  std::optional<CatalogueContent> Base(bool write) {
    if (proc_.copies.Exists(id_)) return proc_.catalogues.GetCatalogue(id_, CopyUse::Take);
    if (!proc_.settings.LocalMode && (!console_.hasSockets() || !NeedTags(proc_)))
      return std::nullopt;
    return write ? proc_.catalogues.GetCatalogue(id_, CopyUse::PassOver)
                 : proc_.catalogues.Look(id_);
  }

  bool Store(const std::vector<std::string>& lines) {
    return proc_.catalogues.SaveCatalogue(id_, {lines, {}, {}, true, SaveMode::StoreOnly}).stored;
  }

  void Print(const std::vector<PreviewLine>& lines, const std::vector<SkippedItem>& skipped) {
    for (const PreviewLine& line : lines) {
      const ImportedDate& date = line.date;
      const bool conflict = line.effect == ImportEffect::Conflict;
      console_.out << (conflict ? "conflict\t" + TypeName(line.present)
                       : line.effect == ImportEffect::Already ? "already"
                                                              : "add")
                   << '\t' << IsoDate(date.date.year, date.date.month + 1, date.date.day) << '\t'
                   << TypeName(date.type) << '\t' << Utf8FromWindows1252(date.name) << '\n';
    }
    for (const SkippedItem& item : skipped) {
      console_.out << "skipped\t" << Utf8FromWindows1252(item.reason.In(proc_.texts)) << '\t'
                   << Utf8FromWindows1252(item.name) << '\n';
    }
  }

  ExitStatus Fail(const std::string& message) {
    proc_.prompts.Show(Icon::Exclamation, message);
    return kFailed;
  }

  Console& console_;
  ZV_Proc& proc_;
  const CatalogueId& id_;
  const ImportOrder& order_;
};

}  // namespace

ExitStatus Import(Console& console, const CatalogueId& id, const Arguments& arguments) {
  const std::optional<ImportOrder> order = OrderOf(console, id, arguments);
  if (!order) return kWrongUsage;
  const auto bytes = ReadFileOperand(console, arguments.operands[2], kLargestImport);
  if (!bytes) return kWrongUsage;
  console.hasInput();
  return Importer(console, id, *order)
      .Run(ReadImportFile(*bytes, order->window, Elapsed), arguments.write);
}

}  // namespace zek::cli
