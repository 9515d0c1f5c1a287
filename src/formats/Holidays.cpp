#include "formats/Holidays.h"

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "formats/CatalogueLine.h"
#include "formats/SwedishHolidays.h"

namespace zek {
namespace {

constexpr int kFirstYear = 1992;

// For each year, a "," and four digits MMDD per holiday. The lists are kept as they have always
// been: two years are out of order and several miss days.
constexpr auto kHolidays = std::to_array<std::string_view>({
    ",0101,0106,0417,0420,0501,0528,0608,0620,1031,1225,1226",  // 1992
    ",0101,0106,0409,0412,0501,0520,0531,0626,1106,1225,1226",  // 1993
    ",0101,0106,0401,0404,0501,0512,0523,0625,1105,1225,1226",  // 1994
    ",0101,0106,0414,0417,0501,0525,0605,0624,1104,1225,1226",  // 1995
    ",0101,0106,0405,0408,0501,0516,0527,0622,1102,1225,1226",  // 1996
    ",0101,0106,0501,0621,1225,1226",                           // 1997
    ",0101,0106,0501,0601,0620,1225,1226",                      // 1998
    ",0101,0106,0402,0405,0501,0513,0524,0626,1106,1225",       // 1999
    ",0101,0106,0501,1225",                                     // 2000
    ",0101,0106,0501,1225,0524,0604,0623,1103",                 // 2001
    ",0101,0106,0501,1225,0520,0625,1102",                      // 2002
    ",0101,0106,0501,1225",                                     // 2003
});

}  // namespace

bool IsHoliday(const CalendarDate& date, OtherYears others) {
  const auto year = static_cast<std::size_t>(date.year - kFirstYear);
  if (date.year < kFirstYear || year >= kHolidays.size()) {
    return others == OtherYears::Sweden && IsSwedishHoliday(date);
  }
  std::string wanted = ",    ";
  PutTwoDigits(wanted, PutTwoDigits(wanted, 1, date.month + 1), date.day);
  return kHolidays.at(year).find(wanted) != std::string_view::npos;
}

}  // namespace zek
