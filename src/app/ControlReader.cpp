#include "app/ControlReader.h"

#include "app/ControlTablesOf.h"

namespace zek {

// Null if the catalogue could not be read.
const CatalogueContent* ControlReader::Content(const CatalogueId& id) {
  const auto [found, isNew] = contents_.try_emplace(id.localFile);
  if (isNew) found->second = source_.read(id);
  const bool missing = !found->second;
  if (missing && !source_.missingIsEmpty) return nullptr;
  static const CatalogueContent empty;
  const CatalogueContent& content = missing ? empty : *found->second;
  hadAllCopies_ = hadAllCopies_ && !missing;
  complete_ = complete_ && !missing && content.linesDropped == 0;
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
  hadAllCopies_ = true;
  const CatalogueContent* const weekdays = Content(selection.Id(Catalogue::Wdc));
  if (weekdays == nullptr) return std::nullopt;
  const CatalogueContent* const calendar = Content(selection.Id(Catalogue::Sdc));
  if (calendar == nullptr) return std::nullopt;
  const CatalogueContent* const exceptions = Content(selection.Id(Catalogue::Ovc));
  if (exceptions == nullptr) return std::nullopt;
  ControlTables tables = ControlTablesOf(proc_, selection, {*weekdays, *calendar, *exceptions});
  NameUnread(selection.Id(Catalogue::Wdc), tables.weekdays.unread);
  NameUnread(selection.Id(Catalogue::Sdc), tables.calendar.unread);
  NameUnread(selection.Id(Catalogue::Ovc), tables.exceptions.unread);
  return tables;
}

}  // namespace zek
