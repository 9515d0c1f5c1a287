#include "formats/ExceptionDrops.h"

#include "formats/CatalogueDate.h"
#include "formats/CatalogueLine.h"
#include "formats/CatalogueTime.h"

namespace zek {

std::vector<std::string> LostStopTimes(const ExceptionTable& table, Generation generation) {
  std::vector<std::string> lost;
  if (generation == Generation::Zek2) return lost;
  for (const OvcRow& row : table.rows) {
    if (!row.used || row.HasStopDate() || row.stop == 0) continue;
    const DateParts date = DateOf(row.start);
    std::string start = "DD-MON-YY";
    PutDate(start, 0, date.year, date.month - 1, date.day, generation);
    lost.push_back(start + "," + ClockText(TimeOfDay(row.start)) + std::string(kRangeMark) +
                   ClockText(row.StopTime()));
  }
  return lost;
}

}  // namespace zek
