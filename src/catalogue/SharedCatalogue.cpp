#include "catalogue/SharedCatalogue.h"

#include "catalogue/LineChanges.h"
#include "formats/ExceptionText.h"
#include "formats/WeekdayText.h"

namespace zek {

namespace {

LinesByOwner SplitByOne(const CatalogueId& id, std::span<const std::string> lines) {
  return id.catalogue == Catalogue::Wdc ? SplitWeekday(lines, id.Owner())
                                        : SplitExceptions(lines, id.Owner());
}

std::optional<BuiltLines> NumberForOne(const CatalogueId& id, std::span<const std::string> own,
                                       std::span<const std::string> listing,
                                       const NumberReader& numbers) {
  if (id.catalogue == Catalogue::Wdc) return NumberWeekday(own, listing, id.Owner());
  const std::optional<ExceptionOptions> options = ReadExceptionOptions(numbers, id.generation);
  if (!options) return std::nullopt;
  return NumberExceptions(own, listing, id.Owner(), *options);
}

}  // namespace

LinesByOwner SplitLines(const CatalogueId& id, std::span<const std::string> lines) {
  LinesByOwner split{{lines.begin(), lines.end()}, {}, {}};
  if (!id.IsPartOfShared()) return split;
  split.others.swap(split.own);
  for (const CatalogueId& each : id.Each()) {
    LinesByOwner of = SplitByOne(each, split.others);
    split.own = Joined(std::move(split.own), of.own);
    split.others = std::move(of.others);
    split.ownerless = std::move(of.ownerless);
  }
  return split;
}

std::vector<std::string> LostOthers(const CatalogueId& id, std::span<const std::string> before,
                                    std::span<const std::string> now) {
  return FindAgain(WithoutStarred(SplitLines(id, before).others), now).missing;
}

std::optional<BuiltLines> NumberOwnLines(const CatalogueId& id, std::span<const std::string> own,
                                         std::span<const std::string> listing,
                                         const NumberReader& numbers) {
  std::vector<std::string> all;
  std::vector<std::string> there(listing.begin(), listing.end());
  for (const CatalogueId& each : id.Each()) {
    auto built = NumberForOne(each, SplitByOne(each, own).own, there, numbers);
    if (!built || std::holds_alternative<BuildError>(*built)) return built;
    const auto& lines = std::get<std::vector<std::string>>(*built);
    all = Joined(std::move(all), lines);
    there = Joined(SplitByOne(each, there).others, lines);
  }
  return all;
}

}  // namespace zek
