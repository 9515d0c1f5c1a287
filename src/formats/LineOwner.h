#pragma once

#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "formats/Generation.h"

namespace zek {

/// A time control and what must be known to tell its lines from those of others: a ZEK1 has one
/// weekday and one exception catalogue for all its controls.
struct LineOwner {
  std::string name;  // "" for the node of a whole object
  Generation generation = Generation::Zek1;
  /// The names of all "PLT" controls of the object; only a ZEK1 needs them. The owner is one of
  /// them if its name begins with "PLT", whether it is listed or not.
  std::vector<std::string> pltControls;

  bool operator==(const LineOwner&) const = default;
};

/// The lines of a catalogue by owner; each group keeps the order of the lines. Blank lines belong
/// to nobody and are in no group.
struct LinesByOwner {
  std::vector<std::string> own;
  std::vector<std::string> others;     // of other controls and of nobody
  std::vector<std::string> ownerless;  // those of nobody (also in `others`)
};

/// True for a weekday line with a name: its first "!" is in column 7, or before it if the columns
/// are not kept. A line without a name has the "PLT" layout.
bool HasLineName(std::string_view line);

/// Tells whose the lines of one weekday catalogue are. On a ZEK2 every line is the owner's. On a
/// ZEK1 a line with a name belongs to the control of that name; a line without one to the "PLT"
/// control whose block contains its number. A control has the block of the hundred that is its
/// number, PLT7 that from 700; without a number the block from 1000. If a controller has only one
/// "PLT" control and no nameless line is in its block, all nameless lines are its.
class WeekdayOwners {
 public:
  WeekdayOwners(std::span<const std::string> lines, const LineOwner& owner);

  /// Returns the name of the control, up to the length that a line holds; "" for nobody.
  /// The text is part of this object or of the line.
  std::string_view Of(std::string_view line) const;

  /// True for the lines of the owner. A root node owns the lines whose name is blank.
  bool IsOwn(std::string_view line) const;

 private:
  bool modern_;
  std::string name_;
  std::map<int, std::string> byBlock_;  // the "PLT" controls of a ZEK1
  std::optional<std::string> onlyPlt_;  // the control that has all nameless lines
};

/// Does the same for a line of an exception catalogue. On a ZEK1 each of its lines has a name. The
/// text is part of the line or of the owner.
std::string_view ExceptionOwnerOf(std::string_view line, const LineOwner& owner);
bool IsOwnException(std::string_view line, const LineOwner& owner);

LinesByOwner SplitWeekday(std::span<const std::string> lines, const LineOwner& owner);
LinesByOwner SplitExceptions(std::span<const std::string> lines, const LineOwner& owner);

/// Returns the first number of the block of a "PLT" name: 700 for PLT7, 1000 without a number.
int BlockOf(std::string_view name);
inline constexpr int kBlockSize = 100;

/// True if another "PLT" control of a ZEK1 has the same block, so that their weekday lines can't be
/// told apart.
bool SharesBlock(const LineOwner& owner);

}  // namespace zek
