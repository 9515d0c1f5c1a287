#include "formats/CalendarRecords.h"

#include "formats/CatalogueLine.h"
#include "formats/DayKeys.h"

namespace zek {

std::vector<std::string> CalendarRecords(const CalendarTable& table, const RecordLabels& labels) {
  const std::string object = labels.object + ";" + labels.duc + ";";
  std::vector<std::string> records;
  records.reserve(table.Used().size());
  for (const CalendarEntry& entry : table.Used()) {
    const CalendarDate date = UnpackDate(entry.date, table.BaseYear());
    std::string text = "    -  -  ;";
    PutTwoDigits(text, PutTwoDigits(text, 0, date.year / 100), date.year % 100);
    PutTwoDigits(text, 5, date.month + 1);
    PutTwoDigits(text, 8, date.day);
    records.push_back(object + text);
    records.back() += kDayKeys.at(static_cast<std::size_t>(entry.type) - 1);
  }
  return records;
}

}  // namespace zek
