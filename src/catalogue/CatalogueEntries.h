#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/CatalogueContent.h"
#include "catalogue/CatalogueKind.h"
#include "formats/CalendarText.h"
#include "formats/Generation.h"
#include "settings/Settings.h"

namespace zek {

/// How the lines of a catalogue are to be understood.
struct CatalogueRules {
  Catalogue kind = Catalogue::Wdc;
  std::string control;  // the time control whose catalogue it is; "" for a whole object's
  Generation generation = Generation::Zek1;
  /// All time controls of the controller stand in one weekday and one exception catalogue.
  bool shared = false;
  CalendarYears years;
  char decimalSeparator = '.';
};

/// The rules of a catalogue.
CatalogueRules RulesOf(const CatalogueId& id, const Settings& settings);

/// One thing that a catalogue says, in a form that two catalogues have in common when they mean the
/// same: a line about five days is five entries, and neither numbers nor padding count.
struct CatalogueEntry {
  enum class Kind {
    Value,       // ".DFV"
    Entry,       // of a table
    Unreadable,  // a line that no table can hold
  };

  Kind kind = Kind::Entry;
  std::string control;    // whose it is; "" where lines don't tell
  std::int64_t day = 0;   // weekday 0 to 13, or the date (`PackDate`, base `CalendarYears::kFirst`)
  std::int64_t time = 0;  // minutes: of the day, or of an exception's start
  std::string says;       // times and values, a day type, or the line without its number
  std::string surplus;    // a stop value where the "PLT" layout has no place for one
  int number = 0;         // of the line
  bool starred = false;   // the line holds a "*"
  bool tooMany = false;   // an exception that the table has no row for
};

/// All entries, in the order of the lines.
std::vector<CatalogueEntry> EntriesOf(const CatalogueContent& content, const CatalogueRules& rules);

/// True when `day` comes right after `before` and a line can hold both.
bool IsNextDay(const CatalogueRules& rules, std::int64_t before, std::int64_t day);

/// An entry as a line says it, "MO..FR    07:00..16:30  21  17", for days `entry.day` to `lastDay`;
/// another control's name stands before it.
std::string EntryText(const CatalogueEntry& entry, std::int64_t lastDay,
                      const CatalogueRules& rules);

}  // namespace zek
