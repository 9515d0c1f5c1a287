#include "Previews.h"

#include <map>

#include "formats/CatalogueFields.h"
#include "import/CalendarPreview.h"
#include "import/ImportFile.h"

namespace zek::fuzz {
namespace {

constexpr CalendarYears kYears{Generation::Zek2, 93, 1996};
constexpr std::int16_t kTypeOfRows = 8;  // without one of their own

// The types of each date; a date may be listed twice.
using Types = std::map<std::int32_t, std::vector<std::int16_t>>;

Types TypesIn(const CalendarTable& table) {
  Types types;
  for (const CalendarEntry& entry : table.Used())
    types[ImportKey(UnpackDate(entry.date, table.BaseYear()))].push_back(entry.type);
  return types;
}

// A file and what it must be read as.
struct RandomFile {
  std::string text;
  std::size_t bad = 0;  // rows that can't be imported
  std::map<std::pair<std::int32_t, std::int16_t>, int> dates;
};

CalendarDate RandomDate(Random& random) {
  return {CalendarYears::kFirst + random.UpTo(2), random.UpTo(11), 1 + random.UpTo(27)};
}

RandomFile RandomTable(Random& random) {
  RandomFile file;
  for (int rows = random.UpTo(150); rows > 0; --rows) {
    const CalendarDate date = RandomDate(random);
    const auto type = static_cast<std::int16_t>(random.UpTo(kCalendarDayTypes));
    const bool bad = random.OneIn(20);
    file.text += bad ? "1995-02-31" : IsoDate(date.year, date.month + 1, date.day);
    file.text += ";";
    if (type > 0) file.text += kDayKeys.at(static_cast<std::size_t>(type) - 1);
    file.text += "\n";
    if (bad) ++file.bad;
    if (!bad) ++file.dates[{ImportKey(date), type}];
  }
  return file;
}

RandomFile RandomEvents(Random& random) {
  RandomFile file{"BEGIN:VCALENDAR\r\n", 0, {}};
  const auto digits = [](const CalendarDate& date) {
    std::string text = IsoDate(date.year, date.month + 1, date.day);
    std::erase(text, '-');
    return text;
  };
  for (int events = 1 + random.UpTo(30); events > 0; --events) {
    CalendarDate day = RandomDate(random);
    file.text += "BEGIN:VEVENT\r\nDTSTART;VALUE=DATE:" + digits(day) + "\r\n";
    for (int length = 1 + random.UpTo(9); length > 0; --length, day = NextDay(day))
      if (kYears.Has(day.year)) ++file.dates[{ImportKey(day), kNoDayType}];
    file.text += "DTEND;VALUE=DATE:" + digits(day) + "\r\nEND:VEVENT\r\n";
  }
  file.text += "END:VCALENDAR\r\n";
  return file;
}

}  // namespace

std::string PreviewFault(Random& random, std::string& text) {
  const bool events = random.OneIn(2);
  const RandomFile file = events ? RandomEvents(random) : RandomTable(random);
  text = file.text;
  CalendarTable table = RandomCalendar(random, kYears);
  if (random.OneIn(4)) table.Add(RandomDate(random), RandomDate(random), 9);  // some twice
  std::size_t clock = 0;
  const ImportWindow window{kYears, 0, ImportKey({kYears.Last(), 11, 31}), kYears.Last(), false};
  const ImportedDates read =
      ReadImportFile(file.text, window, [&clock] { return std::chrono::milliseconds(clock); });
  if (read.refused) return "the file was refused";
  auto dates = file.dates;
  for (const ImportedDate& each : read.dates) --dates[{ImportKey(each.date), each.type}];
  for (const auto& [date, left] : dates)
    if (left != 0) return "other dates than the file's";
  if (!events && read.skipped.size() != file.bad) return "another number of bad rows";

  const auto lines = PreviewImport(table, read.dates, kTypeOfRows);
  if (lines.size() != read.dates.size()) return "a date is not listed";
  std::vector<bool> ticks;
  Types expected = TypesIn(table);
  bool full = false;
  for (const PreviewLine& line : lines) {
    auto& there = expected[ImportKey(line.date.date)];
    ticks.push_back(random.OneIn(2));
    const bool conflict = line.effect == ImportEffect::Conflict;
    if (there.empty() != (line.effect == ImportEffect::Add)) return "not what the calendar has";
    if (line.effect == ImportEffect::Add || (conflict && ticks.back())) there = {line.date.type};
    std::size_t entries = 0;
    for (const auto& [date, types] : expected) entries += types.size();
    full = full || entries > kCalendarEntries;
  }
  const auto result = WithImported(table, lines, ticks);
  if (full || !result) return full && !result ? "" : "not full when it is";
  return TypesIn(*result) == expected ? "" : "something else changes";
}

}  // namespace zek::fuzz
