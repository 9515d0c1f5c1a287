#pragma once

#include "plant/Plant.h"

namespace zek::sim {

/// A ZEK1 without DUS number and a ZEK2 with DUS number 3, one line in each catalogue.
inline Plant SmallPlant() {
  Outstation old;
  old.weekday = {
      "VECKODAGAR",
      {{1000, " 1000 !TSC1        !MO..FR       !07:00..16:30             !21       !17"}}};
  old.calendar = {"SPECIALDAGAR",
                  {{1000, " 1000 !24-DEC-26                                           !SD1"}}};
  old.exceptions = {"UNDANTAG",
                    {{1, "    1 !TSC1        !24-DEC-26,08:00                        !.!."}}};
  Outstation modern;
  modern.generation = Generation::Zek2;
  modern.dus = 3;
  modern.calendar = {"SPECIALDAGAR", {}};
  modern.controls = {
      {"PLT7",
       {"VECKODAGAR", {{701, " 701  MO..FR                   !07:00..16:30 !21    "}}},
       {"UNDANTAG", {{1, "1     24-DEC-2026              !08:00..17:00 !21    !16"}}},
       "21.5"},
      {"AHU1", {"VECKODAGAR", {}}, {"UNDANTAG", {}}, {}}};
  return {{old, modern}};
}

}  // namespace zek::sim
