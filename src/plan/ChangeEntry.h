#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "editors/PickList.h"
#include "plan/ChangeList.h"
#include "plan/PlanWords.h"

namespace zek {

/// What a user enters for a change of several controls. Which fields count depends on the kind.
struct ChangeEntry {
  ChangeKind kind = ChangeKind::GiveType;
  std::vector<std::size_t> days;  // 0 Monday to 13 SD7
  std::string firstDate;
  std::string start;     // a time
  std::string lastDate;  // "": the first date; of an exception: that of the start
  std::string stop;      // a time
  std::string value;
  std::string stopValue;
  std::int16_t type = 1;  // 1 Monday to 14 SD7

  bool operator==(const ChangeEntry&) const = default;
};

enum class ChangeField { Days, FirstDate, Start, LastDate, Stop, Value, StopValue, Type };

/// True if the field counts for that kind.
bool Counts(ChangeField field, ChangeKind kind);

/// The change, or which field is wrong and why.
struct EnteredChange {
  std::optional<ListedChange> change;
  ChangeField wrong = ChangeField::Days;
  std::string why;
};

/// Reads an entry by the rules of the editors' boxes. Values may be names in `names`.
EnteredChange EnterChange(const ChangeEntry& entry, const PickList& names,
                          const LanguageTexts& texts);

}  // namespace zek
