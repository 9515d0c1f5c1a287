#include "report/YearPicture.h"

#include "formats/CalendarNames.h"
#include "formats/CalendarTable.h"
#include "formats/ExceptionTable.h"
#include "text/Markup.h"

namespace zek {
namespace {

constexpr int kMonthsAcross = 4;
constexpr int kMonths = 12;
constexpr int kCellWidth = 34;
constexpr int kCellHeight = 22;
constexpr int kMonthWidth = 7 * kCellWidth + 12;
constexpr int kMonthHeight = 7 * kCellHeight + 8;  // its name and at most six weeks
constexpr int kTop = 26;
constexpr int kBaseline = 15;  // of the text below the top of its line

std::string TextAt(int x, int y, const std::string& attributes, const std::string& text) {
  return "<text x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\"" + attributes +
         ">" + MarkupText(text) + "</text>\n";
}

DayNumber DayOfDate(const CalendarDate& date) {
  return DayOf(DateMoment(date.year, date.month + 1, date.day));
}

// A day with an entry has a frame, so that it is seen without colour.
std::string DayAt(int x, int y, const CalendarDate& date, const DatedType* entry,
                  const YearWords& words) {
  const std::string number = std::to_string(date.day);
  if (entry == nullptr) return TextAt(x + 2, y + kBaseline, "", number);
  const int type = static_cast<int>(entry->type) + 1;
  const int weekday = static_cast<int>(WeekdayOf(entry->day));
  return "<g><title>" +
         MarkupText(DateName(date, weekday, words.texts) + ": " +
                    SpokenDayType(type, words.texts, words.names)) +
         "</title><rect x=\"" + std::to_string(x) + "\" y=\"" + std::to_string(y) + "\" width=\"" +
         std::to_string(kCellWidth - 2) + "\" height=\"" + std::to_string(kCellHeight - 2) +
         "\" fill=\"#e8eef7\" stroke=\"#2b4a78\"/>\n" +
         TextAt(x + 2, y + kBaseline, R"( font-weight="bold")", number) +
         TextAt(x + kCellWidth - 4, y + kBaseline,
                R"( text-anchor="end" font-size="8" fill="#2b4a78")",
                DayTypeAbbreviation(type, words.texts)) +
         "</g>\n";
}

std::string MonthAt(int left, int top, CalendarDate date, const DayTypes& types,
                    const YearWords& words) {
  std::string svg =
      TextAt(left + 2, top + kBaseline, R"( font-weight="bold")", MonthName(date, words.texts));
  int week = 1;
  const int length = MonthLength(date.year, date.month);
  for (date.day = 1; date.day <= length; ++date.day) {
    const DayNumber day = DayOfDate(date);
    const auto weekday = static_cast<int>(WeekdayOf(day));
    svg += DayAt(left + weekday * kCellWidth, top + week * kCellHeight, date, types.EntryOf(day),
                 words);
    if (weekday + 1 == static_cast<int>(kDaysOfType)) ++week;
  }
  return svg;
}

}  // namespace

std::string YearPicture(int year, const DayTypes& types, const std::string& title,
                        const YearWords& words) {
  const std::string width = std::to_string(kMonthsAcross * kMonthWidth);
  const std::string height = std::to_string(kTop + kMonths / kMonthsAcross * kMonthHeight);
  std::string svg = R"(<svg xmlns="http://www.w3.org/2000/svg" width=")" + width + "\" height=\"" +
                    height + "\" viewBox=\"0 0 " + width + " " + height +
                    "\" role=\"img\" font-family=\"sans-serif\" font-size=\"12\">\n<title>" +
                    MarkupText(title) + "</title>\n" + TextAt(2, kBaseline, "", title);
  for (int month = 0; month < kMonths; ++month) {
    svg += MonthAt(month % kMonthsAcross * kMonthWidth, kTop + month / kMonthsAcross * kMonthHeight,
                   {year, month, 1}, types, words);
  }
  return svg + "</svg>\n";
}

}  // namespace zek
