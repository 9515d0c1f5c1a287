#include "formats/ExportRecords.h"

#include <string_view>

#include "formats/CatalogueFields.h"
#include "formats/ExceptionCells.h"
#include "formats/WeekdayCells.h"
#include "text/Windows1252.h"

namespace zek {

namespace {

constexpr std::string_view kValueOnHead = ";;;Startvärde;"_w1252;
constexpr std::string_view kValueOffHead = ";;;Stoppvärde;"_w1252;

// Adds `head` and the 14 cells as a line; returns true if one of the cells contains text.
template <class CellText>
bool AddRecord(std::vector<std::string>& records, std::string head, CellText cellText) {
  bool filled = false;
  for (std::size_t day = 0; day < kWeekdayDays; ++day) {
    const std::string cell = cellText(day);
    filled = filled || !cell.empty();
    head.append(cell).append(";");
  }
  records.push_back(std::move(head));
  return filled;
}

}  // namespace

std::vector<std::string> WeekdayRecords(const WeekdayTable& table, const RecordLabels& labels,
                                        char decimalSeparator) {
  const std::string object = labels.object + ";" + labels.duc + ";" + labels.destination + ";";
  std::vector<std::string> records;
  for (std::size_t row = 0; row < kWeekdayRows; ++row) {
    const auto cells = [&table, row](std::size_t day) -> const WeekdayRow& {
      return table.days[day][row];
    };
    const std::size_t before = records.size();
    bool filled = AddRecord(records, object + "Start;",
                            [&](std::size_t day) { return TimeText(cells(day).start); });
    filled |=
        AddRecord(records, ";;;Stopp;", [&](std::size_t day) { return TimeText(cells(day).stop); });
    filled |= AddRecord(records, std::string(kValueOnHead),
                        [&](std::size_t day) { return ValueOnText(cells(day), decimalSeparator); });
    filled |= AddRecord(records, std::string(kValueOffHead), [&](std::size_t day) {
      return ValueOffText(cells(day), decimalSeparator);
    });
    if (!filled) records.resize(before);
  }
  return records;
}

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

std::vector<std::string> ExceptionRecords(const ExceptionTable& table, const RecordLabels& labels,
                                          char decimalSeparator) {
  std::vector<std::string> records;
  for (const OvcRow& row : table.rows) {
    if (!row.used) continue;
    std::string record = labels.object + ";" + labels.duc + ";" + labels.destination;
    for (const std::string& text : TextsOf(row, decimalSeparator).texts) record += ";" + text;
    records.push_back(std::move(record));
  }
  return records;
}

}  // namespace zek
