#include "commands/Commands.h"
#include "formats/CatalogueFields.h"
#include "formats/SwedishHolidays.h"

namespace zek::cli {

int YearIn(const std::string& text) {
  if (text.size() != 4 || text.find_first_not_of("0123456789") != std::string::npos) return 0;
  const int year = static_cast<int>(Val(text));
  return IsKnownYear(year) ? year : 0;
}

ExitStatus PrintHolidays(Console& console, const Arguments& arguments) {
  if (arguments.operands[0] != "SE") return Refuse(console, "holidays: only SE is known");
  const int first = YearIn(arguments.operands[1]);
  const int last = YearIn(arguments.operands.back());
  if (first == 0 || last < first) return Refuse(console, "holidays: years from 1990 to 2099");
  for (int year = first; year <= last; ++year) {
    for (const Holiday& holiday : SwedishHolidays(year)) {
      console.out << IsoDate(year, holiday.date.month + 1, holiday.date.day) << '\t'
                  << (holiday.isPublic ? "public" : "defacto") << '\t' << holiday.name << '\n';
    }
  }
  return kDone;
}

}  // namespace zek::cli
