#include "formats/CalendarNames.h"

#include "formats/CatalogueFields.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr int kWeekdays = 7;
constexpr std::size_t kAbbreviationLength = 3;

// Some languages write day names with a small initial within a sentence.
std::string WithSmallInitial(std::string name) {
  if (name.empty()) return name;
  const auto code = static_cast<unsigned char>(name[0]);
  const bool capital = (code >= 'A' && code <= 'Z') || (code >= 0xC0 && code <= 0xDE);
  if (capital) name[0] = static_cast<char>(code + ('a' - 'A'));
  return name;
}

}  // namespace

std::string DayTypeAbbreviation(int type, const LanguageTexts& texts) {
  const auto place = static_cast<std::size_t>(type);
  const std::string all = texts.Text(text::kDayTypesShort);
  if (all.size() >= kAbbreviationLength * (kCalendarDayTypes + 1))
    return all.substr(place * kAbbreviationLength, kAbbreviationLength);
  // A language without this text shows the day's key.
  std::string key(type == kNoDayType ? "" : kDayKeys.at(place - 1));
  key.resize(kAbbreviationLength, ' ');
  return key;
}

std::string DayTypeCaption(int type, const LanguageTexts& texts, const SpecialDayNames& names) {
  if (type == kNoDayType) return texts.Text(text::kNoDayTypeCaption);
  if (type <= kWeekdays) return texts.Text(text::kWeekdayNames + type - 1);
  return WithDayName(std::string(Trim(DayTypeAbbreviation(type, texts))),
                     static_cast<std::size_t>(type - kWeekdays - 1), names);
}

std::string DayTypeName(std::size_t day, const LanguageTexts& texts, const SpecialDayNames& names) {
  if (day < kWeekdays) return texts.Text(text::kMonday + static_cast<std::int32_t>(day));
  return DayTypeCaption(static_cast<int>(day) + 1, texts, names);
}

std::string SpokenDayType(int type, const LanguageTexts& texts, const SpecialDayNames& names) {
  std::string caption = DayTypeCaption(type, texts, names);
  if (type > kWeekdays) return caption;
  return Message(texts.Text(text::kSpokenAs), {caption, WithSmallInitial(caption)});
}

std::string MonthName(const CalendarDate& date, const LanguageTexts& texts) {
  return Message(texts.Text(text::kMonthShown),
                 {texts.Text(text::kMonthNamesShown + date.month), std::to_string(date.year)});
}

std::string DateName(const CalendarDate& date, int weekday, const LanguageTexts& texts) {
  const std::string day = texts.Text(text::kWeekdayNames + weekday);
  const std::string month = texts.Text(text::kMonthNamesShown + date.month);
  return Message(texts.Text(text::kSpokenDate),
                 {day, std::to_string(date.day), month, std::to_string(date.year),
                  WithSmallInitial(day), WithSmallInitial(month)});
}

}  // namespace zek
