#include "formats/ExceptionRecords.h"

#include "formats/ExceptionCells.h"

namespace zek {

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
