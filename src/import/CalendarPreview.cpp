#include "import/CalendarPreview.h"

#include <algorithm>
#include <map>

namespace zek {

std::vector<PreviewLine> PreviewImport(const CalendarTable& table, std::vector<ImportedDate> dates,
                                       std::int16_t type) {
  std::stable_sort(dates.begin(), dates.end(), [](const auto& one, const auto& other) {
    return ImportKey(one.date) < ImportKey(other.date);
  });
  std::map<std::int32_t, std::int16_t> present;
  for (const CalendarEntry& entry : table.Used())
    present.emplace(ImportKey(UnpackDate(entry.date, table.BaseYear())), entry.type);
  std::vector<PreviewLine> lines;
  lines.reserve(dates.size());
  for (ImportedDate& date : dates) {
    if (date.type == kNoDayType) date.type = type;
    const auto [there, isNew] = present.emplace(ImportKey(date.date), date.type);
    const bool same = there->second == date.type;
    const ImportEffect effect = isNew  ? ImportEffect::Add
                                : same ? ImportEffect::Already
                                       : ImportEffect::Conflict;
    lines.push_back({effect, std::move(date), isNew ? kNoDayType : there->second});
  }
  return lines;
}

std::optional<CalendarTable> WithImported(CalendarTable table,
                                          const std::vector<PreviewLine>& lines,
                                          const std::vector<bool>& replaces) {
  for (std::size_t at = 0; at < lines.size(); ++at) {
    const PreviewLine& line = lines[at];
    const bool replaced =
        line.effect == ImportEffect::Conflict && at < replaces.size() && replaces[at];
    if (line.effect != ImportEffect::Add && !replaced) continue;
    if (!table.Give(line.date.date, line.date.date, line.date.type)) return std::nullopt;
  }
  return table;
}

}  // namespace zek
