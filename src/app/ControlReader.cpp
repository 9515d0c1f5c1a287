#include "app/ControlReader.h"

#include "app/ControlTablesOf.h"

namespace zek {

// Null if the catalogue could not be read.
const CatalogueContent* ControlReader::Content(const CatalogueId& id, bool& known) {
  const auto [found, isNew] = contents_.try_emplace(id.localFile);
  if (isNew) found->second = source_.read(id);
  known = found->second.has_value();
  if (!known && !source_.missingIsEmpty) return nullptr;
  static const CatalogueContent empty;
  const CatalogueContent& content = known ? *found->second : empty;
  complete_ = complete_ && known && content.linesDropped == 0;
  return &content;
}

void ControlReader::NameUnread(const CatalogueId& id, const std::vector<std::string>& lines) {
  complete_ = complete_ && lines.empty();
  for (const std::string& line : lines)
    if (named_.insert(id.localFile + "\n" + line).second) source_.unread(id, line);
}

std::optional<ControlTables> ControlReader::Read(std::size_t node) {
  SelectNode(proc_, node);
  const Selection selection = proc_.selection;
  KnownCatalogues known;
  const CatalogueContent* const weekdays = Content(selection.Id(Catalogue::Wdc), known.weekdays);
  if (weekdays == nullptr) return std::nullopt;
  const CatalogueContent* const calendar = Content(selection.Id(Catalogue::Sdc), known.calendar);
  if (calendar == nullptr) return std::nullopt;
  const CatalogueContent* const exceptions =
      Content(selection.Id(Catalogue::Ovc), known.exceptions);
  if (exceptions == nullptr) return std::nullopt;
  ControlTables tables = ControlTablesOf(proc_, selection, {*weekdays, *calendar, *exceptions});
  tables.known = known;
  NameUnread(selection.Id(Catalogue::Wdc), tables.weekdays.unread);
  NameUnread(selection.Id(Catalogue::Sdc), tables.calendar.unread);
  NameUnread(selection.Id(Catalogue::Ovc), tables.exceptions.unread);
  return tables;
}

}  // namespace zek
