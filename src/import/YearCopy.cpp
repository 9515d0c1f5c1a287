#include "import/YearCopy.h"

#include <array>
#include <string_view>

#include "formats/CatalogueFields.h"
#include "formats/ExceptionTable.h"
#include "formats/SwedishHolidays.h"
#include "import/ImportText.h"
#include "lang/TextNumbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

// A day that moves with a holiday, so many days after it.
struct Companion {
  std::string_view name;  // UTF-8
  std::string_view holiday;
  int days;
};

constexpr std::array kCompanions{
    Companion{"Skärtorsdagen", "Påskdagen", -3}, Companion{"Påskafton", "Påskdagen", -1},
    Companion{"Dagen efter Kristi himmelsfärdsdag", "Kristi himmelsfärdsdag", 1},
    Companion{"Pingstafton", "Pingstdagen", -1},
    Companion{"Allhelgonaafton", "Alla helgons dag", -1}};

CalendarDate DaysAfter(const CalendarDate& date, int days) {
  const DateParts parts =
      DateOf(DateMoment(date.year, date.month + 1, date.day) + Moment{days} * kMinutesOfDay);
  return {parts.year, parts.month - 1, parts.day};
}

std::vector<Holiday> DaysThatMove(int year) {
  std::vector<Holiday> days = SwedishHolidays(year);
  const std::size_t holidays = days.size();
  for (const Companion& companion : kCompanions) {
    for (std::size_t at = 0; at < holidays; ++at)
      if (days[at].name == companion.holiday)
        days.push_back({DaysAfter(days[at].date, companion.days), companion.name, false});
  }
  return days;
}

}  // namespace

ImportedDates YearDates(const CalendarTable& table, int from, int to, YearCopy copy,
                        const ImportWindow& window) {
  ImportedDates dates;
  DateTaker taker(window, dates);
  const auto moves = copy == YearCopy::Holidays;
  const std::vector<Holiday> before = moves ? DaysThatMove(from) : std::vector<Holiday>();
  const std::vector<Holiday> after = moves ? DaysThatMove(to) : std::vector<Holiday>();
  const auto take = [&](const CalendarDate& date, std::int16_t type, const std::string& name) {
    if (IsDate(date)) {
      taker.Take(date, type, name);
    } else {
      taker.Skip({text::kImportBadDate}, name);
    }
  };
  for (CalendarDate day{from, 0, 1}; day.year == from; day = NextDay(day)) {
    const std::int16_t type = table.TypeOn(day);
    if (type == kNoDayType) continue;
    const std::string name = IsoDate(day.year, day.month + 1, day.day);
    bool moved = false;
    for (const Holiday& old : before) {
      for (const Holiday& now : after) {
        if (old.date != day || old.name != now.name) continue;
        moved = true;
        take(now.date, type, name + " " + Windows1252FromUtf8(old.name));
      }
    }
    if (!moved) take({to, day.month, day.day}, type, name);
  }
  return dates;
}

}  // namespace zek
