#include "RandomTables.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "text/Windows1252.h"

namespace zek::fuzz {
namespace {

// A value as an operator types it: up to `digits` digits, of them up to three behind the point.
float RandomValue(Random& random, int digits) {
  constexpr std::array<int, 8> powers = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000};
  const int whole = random.UpTo(powers.at(static_cast<std::size_t>(random.UpTo(digits))) - 1);
  const int scale = powers.at(static_cast<std::size_t>(random.UpTo(std::min(digits - 1, 3))));
  const auto value = static_cast<float>(static_cast<double>(whole) / scale);
  return random.OneIn(4) ? -value : value;
}

// A value that fits `width` columns, with its sign and point.
float ValueOfWidth(Random& random, std::size_t width) {
  return RandomValue(random, static_cast<int>(width) - 2);
}

std::int16_t RandomTime(Random& random) {
  if (random.OneIn(50)) return kMinutesOfDay;
  return static_cast<std::int16_t>(random.UpTo(kMinutesOfDay));
}

WeekdayRow RandomRow(Random& random, bool plt) {
  WeekdayRow row;
  row.start = RandomTime(random);
  if (!random.OneIn(3)) row.stop = RandomTime(random);
  row.valueOn = ValueOfWidth(random, plt ? 6 : 9);
  if (!plt && !random.OneIn(3)) row.valueOff = RandomValue(random, 7);
  return row;
}

Moment RandomDate(Random& random, int firstYear, int lastYear) {
  return DateMoment(firstYear + random.UpTo(lastYear - firstYear), 1 + random.UpTo(11),
                    1 + random.UpTo(27));
}

OvcRow RandomException(Random& random, Generation generation) {
  const bool modern = generation == Generation::Zek2;
  const auto moment = [&] {
    return RandomDate(random, modern ? 1901 : 1990, modern ? 9999 : 2089) +
           random.UpTo(kMinutesOfDay - 1);
  };
  OvcRow row{true, moment()};
  if (random.OneIn(2)) {
    row.stop = moment();
  } else if (modern) {
    row.stop = RandomTime(random);
  }
  row.valueOn = random.OneIn(4) ? kNoValue : ValueOfWidth(random, modern ? 6 : 9);
  if (random.OneIn(2)) row.valueOff = RandomValue(random, 7);
  return row;
}

}  // namespace

std::string RandomName(Random& random, bool plt) {
  if (plt) return (random.OneIn(2) ? "PLT" : "plt") + std::to_string(random.UpTo(99));
  constexpr std::string_view letters = "ABCXYZabc_-0189 åÄÖ"_w1252;
  std::string name = "T";
  for (int more = random.UpTo(15); more > 0; --more) {
    name += letters[static_cast<std::size_t>(random.UpTo(static_cast<int>(letters.size()) - 1))];
  }
  return name;
}

WeekdayTable RandomWeekday(Random& random, bool plt) {
  WeekdayTable table;
  std::array<std::size_t, kWeekdayDays> used{};
  for (int lines = random.UpTo(plt ? 60 : 120); lines > 0; --lines) {
    const auto first = static_cast<std::size_t>(random.UpTo(int{kWeekdayDays} - 1));
    const std::size_t last = random.OneIn(2) ? first : std::min(first + 4, kWeekdayDays - 1);
    const WeekdayRow row = RandomRow(random, plt);
    for (std::size_t day = first; day <= last; ++day) {
      if (used[day] < kWeekdayRows) table.days[day][used[day]++] = row;
    }
  }
  return table;
}

CalendarTable RandomCalendar(Random& random, const CalendarYears& years) {
  CalendarTable table(CalendarYears::kFirst);
  for (int runs = random.UpTo(60); runs > 0; --runs) {
    const CalendarDate first{
        CalendarYears::kFirst + random.UpTo(years.Last() - CalendarYears::kFirst), random.UpTo(11),
        1 + random.UpTo(27)};
    CalendarDate last = first;
    for (int days = random.OneIn(2) ? random.UpTo(40) : 0; days > 0; --days) last = NextDay(last);
    if (!years.Has(last.year)) last = first;
    // A run without enough space is left out.
    table.Give(first, last, static_cast<std::int16_t>(1 + random.UpTo(kCalendarDayTypes - 1)));
  }
  return table;
}

ExceptionTable RandomExceptions(Random& random, Generation generation) {
  ExceptionTable table;
  const int used = random.UpTo(int{kExceptionRows});
  for (int row = 0; row < used; ++row) {
    table.rows.at(static_cast<std::size_t>(row)) = RandomException(random, generation);
  }
  return table;
}

}  // namespace zek::fuzz
