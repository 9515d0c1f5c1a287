#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "lang/LanguageTexts.h"
#include "settings/Profile.h"
#include "system/Prompts.h"

namespace zek {

/// One value that can be picked: "Dag" for 20.5. The text of no value is ".".
struct PickListItem {
  std::string name;
  std::string value;  // as the editors print it

  /// What the menu shows: the name, a tab, the value in square brackets.
  std::string Caption() const { return name + "\t[" + value + "]"; }

  /// True when a box that holds `boxText` holds this value, or its name in any case. An empty box
  /// holds no value.
  bool IsIn(std::string_view boxText) const;
};

/// The values that a start or stop value of a time control usually has.
struct PickList {
  std::string section;              // of the settings file: "TXI_3"
  std::vector<PickListItem> items;  // empty: the time control has no pick-list
  /// The section was longer than its buffer, by its length in characters; 0 when it was not. Its
  /// last entry may be torn and is left out.
  std::size_t cutLength = 0;
};

/// Reads the table of section "TXI_" `table`: "Default" for no value first, then the lines
/// "name=value" in the order of the file. Values have a "." for their decimals there; what is no
/// number is 0. Table 0 is none.
PickList ReadPickList(const Profile& profile, std::int32_t table, char decimalSeparator);

/// The list for a value that is never none.
PickList WithoutDefault(PickList list);

/// Tells of a section that was cut.
void TellCut(const PickList& list, Prompts& prompts, const LanguageTexts& texts);

}  // namespace zek
