#include "formats/CalendarRecords.h"

#include "formats/CatalogueDate.h"
#include "formats/DayKeys.h"

namespace zek {

std::vector<std::string> CalendarRecords(const CalendarTable& table, const RecordLabels& labels) {
  const std::string object = labels.object + ";" + labels.duc + ";";
  std::vector<std::string> records;
  records.reserve(table.Used().size());
  for (const CalendarEntry& entry : table.Used()) {
    const CalendarDate date = UnpackDate(entry.date, table.BaseYear());
    records.push_back(object + IsoDate(date.year, date.month + 1, date.day) + ";");
    records.back() += kDayKeys.at(static_cast<std::size_t>(entry.type) - 1);
  }
  return records;
}

}  // namespace zek
