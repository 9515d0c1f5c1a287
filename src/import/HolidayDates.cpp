#include "import/HolidayDates.h"

#include <string_view>

#include "formats/ExceptionTable.h"
#include "formats/SwedishHolidays.h"
#include "import/ImportText.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

CalendarDate DayBefore(const CalendarDate& date) {
  const DateParts parts = DateOf(DateMoment(date.year, date.month + 1, date.day) - kMinutesOfDay);
  return {parts.year, parts.month - 1, parts.day};
}

// The eve of a day that has one of its own name besides those that are free nearly everywhere.
std::string_view EveOf(std::string_view name) {
  if (name == "Påskdagen") return "Påskafton";
  return name == "Pingstdagen" ? "Pingstafton" : std::string_view();
}

}  // namespace

ImportedDates HolidayDates(int firstYear, int lastYear, const HolidayGroups& groups,
                           const ImportWindow& window) {
  ImportedDates imported;
  DateTaker taker(window, imported);
  const auto take = [&taker](const CalendarDate& date, std::string_view name, std::int16_t type) {
    if (type != kNoDayType) taker.Take(date, type, Windows1252FromUtf8(name));
  };
  for (int year = firstYear; year <= lastYear; ++year) {
    for (const Holiday& holiday : SwedishHolidays(year)) {
      const std::string_view eve = EveOf(holiday.name);
      if (!eve.empty()) take(DayBefore(holiday.date), eve, groups.eves);
      take(holiday.date, holiday.name, holiday.isPublic ? groups.byLaw : groups.deFacto);
    }
  }
  return imported;
}

}  // namespace zek
