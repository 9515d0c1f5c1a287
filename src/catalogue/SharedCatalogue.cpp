#include "catalogue/SharedCatalogue.h"

#include "formats/ExceptionText.h"
#include "formats/WeekdayText.h"

namespace zek {

LinesByOwner SplitLines(const CatalogueId& id, std::span<const std::string> lines) {
  if (!id.IsPartOfShared()) return {{lines.begin(), lines.end()}, {}, {}};
  return id.catalogue == Catalogue::Wdc ? SplitWeekday(lines, id.Owner())
                                        : SplitExceptions(lines, id.Owner());
}

std::optional<BuiltLines> NumberOwnLines(const CatalogueId& id, std::span<const std::string> own,
                                         std::span<const std::string> listing,
                                         const NumberReader& numbers) {
  if (id.catalogue == Catalogue::Wdc) return NumberWeekday(own, listing, id.Owner());
  const std::optional<ExceptionOptions> options = ReadExceptionOptions(numbers, id.generation);
  if (!options) return std::nullopt;
  return NumberExceptions(own, listing, id.Owner(), *options);
}

}  // namespace zek
