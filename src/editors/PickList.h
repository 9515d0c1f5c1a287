#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lang/LanguageTexts.h"
#include "settings/Profile.h"
#include "system/Prompts.h"

namespace zek {

/// A value to choose, for example "Dag" for 20.5. The text of a missing value is ".".
struct PickListItem {
  std::string name;
  std::string value;  // as the editors show it

  /// The menu text: the name, a tab, the value in square brackets.
  std::string Caption() const { return name + "\t[" + value + "]"; }

  /// True when a box contains this value, or its name in upper or lower case. An empty box matches
  /// the item without a value.
  bool IsIn(std::string_view boxText) const;
};

/// The usual start or stop values of a time control.
struct PickList {
  std::string section;              // in the settings file: "TXI_3"
  std::vector<PickListItem> items;  // empty if the time control has no pick-list
  /// The section's length in characters if it exceeded the buffer, else 0. The last entry, which
  /// may be incomplete, is left out.
  std::size_t cutLength = 0;
};

/// Reads section "TXI_" `table`: first "Default" for no value, then the lines "name=value" in the
/// order of the file. Values have "." as the decimal separator; text that is not a number is 0.
/// Table 0 gives an empty list.
PickList ReadPickList(const Profile& profile, std::int32_t table, char decimalSeparator);

/// Returns the list without "Default", for a value that must not be missing.
PickList WithoutDefault(PickList list);

/// Returns the value of a typed text, in which "," and "." are both decimal separators: a number is
/// that number, "." or "," alone is `kNoValue`. Other text is the name of an item, or the beginning
/// of only one name, in upper or lower case. Returns nothing for any other text.
std::optional<float> TypedValue(std::string_view text, const PickList& list);

/// Returns a value with its name, "1 På"; without a name, only the value.
std::string WithName(const std::string& value, const PickList& list);

/// True if the list has names for values, but none for this one.
bool IsOutside(const std::string& value, const PickList& list);

/// Shows a message if the section was cut.
void TellCut(const PickList& list, Prompts& prompts, const LanguageTexts& texts);

}  // namespace zek
