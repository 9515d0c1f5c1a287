#include "formats/LineOwner.h"

#include <algorithm>
#include <utility>

#include "formats/CatalogueLine.h"
#include "formats/LineNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

constexpr std::size_t kNameMark = 6;  // from 0: the column of the "!" before the name

bool IsBlank(std::string_view line) {
  return line.find_first_not_of(' ') == std::string_view::npos;
}

std::string_view NameIn(std::string_view line) { return Trim(GetField(line, 1, kFieldMark)); }

int BlockOfLine(std::string_view line) { return LineNumber(line) / kBlockSize * kBlockSize; }

// Returns the "PLT" controls of a ZEK1 by name, the owner first.
std::vector<std::string> PltControlsOf(const LineOwner& owner) {
  std::vector<std::string> names;
  if (owner.generation == Generation::Zek2) return names;
  const auto add = [&names](const std::string& name) {
    const bool known = std::find(names.begin(), names.end(), name) != names.end();
    if (IsPltName(name) && !known) names.push_back(name);
  };
  add(owner.name);
  for (const std::string& name : owner.pltControls) add(name);
  return names;
}

template <class IsOwn, class NameOf>
LinesByOwner Split(std::span<const std::string> lines, IsOwn isOwn, NameOf nameOf) {
  LinesByOwner split;
  for (const std::string& line : lines) {
    if (IsBlank(line)) continue;
    if (isOwn(line)) {
      split.own.push_back(line);
      continue;
    }
    split.others.push_back(line);
    if (nameOf(line).empty()) split.ownerless.push_back(line);
  }
  return split;
}

}  // namespace

bool HasLineName(std::string_view line) { return line.find(kFieldMark) <= kNameMark; }

WeekdayOwners::WeekdayOwners(std::span<const std::string> lines, const LineOwner& owner)
    : modern_(owner.generation == Generation::Zek2), name_(LineName(owner.name)) {
  const std::vector<std::string> controls = PltControlsOf(owner);
  // Of two controls with one block the owner, which comes first, has the lines.
  for (const std::string& name : controls) byBlock_.emplace(BlockOf(name), LineName(name));
  if (controls.size() != 1) return;
  const bool inBlock = std::any_of(lines.begin(), lines.end(), [this](const std::string& line) {
    return !IsBlank(line) && !HasLineName(line) && byBlock_.count(BlockOfLine(line)) > 0;
  });
  if (!inBlock) onlyPlt_ = LineName(controls.front());
}

std::string_view WeekdayOwners::Of(std::string_view line) const {
  if (IsBlank(line)) return {};
  if (modern_) return name_;
  if (HasLineName(line)) return NameIn(line);
  if (onlyPlt_) return *onlyPlt_;
  const auto found = byBlock_.find(BlockOfLine(line));
  return found == byBlock_.end() ? std::string_view() : found->second;
}

bool WeekdayOwners::IsOwn(std::string_view line) const {
  if (IsBlank(line)) return false;
  return Of(line) == name_ && (modern_ || !name_.empty() || HasLineName(line));
}

std::string_view ExceptionOwnerOf(std::string_view line, const LineOwner& owner) {
  if (IsBlank(line)) return {};
  if (owner.generation == Generation::Zek2) return LineName(owner.name);
  return NameIn(line);
}

bool IsOwnException(std::string_view line, const LineOwner& owner) {
  return !IsBlank(line) && ExceptionOwnerOf(line, owner) == LineName(owner.name);
}

LinesByOwner SplitWeekday(std::span<const std::string> lines, const LineOwner& owner) {
  const WeekdayOwners owners(lines, owner);
  return Split(
      lines, [&owners](const std::string& line) { return owners.IsOwn(line); },
      [&owners](const std::string& line) { return owners.Of(line); });
}

LinesByOwner SplitExceptions(std::span<const std::string> lines, const LineOwner& owner) {
  return Split(
      lines, [&owner](const std::string& line) { return IsOwnException(line, owner); },
      [&owner](const std::string& line) { return ExceptionOwnerOf(line, owner); });
}

int BlockOf(std::string_view name) { return FirstLineNumber(name) / kBlockSize * kBlockSize; }

bool SharesBlock(const LineOwner& owner) {
  const std::vector<std::string> controls = PltControlsOf(owner);
  return IsPltName(owner.name) &&
         std::count_if(controls.begin(), controls.end(), [&owner](const std::string& name) {
           return BlockOf(name) == BlockOf(owner.name);
         }) > 1;
}

}  // namespace zek
