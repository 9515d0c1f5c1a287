#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "formats/CalendarText.h"
#include "formats/Generation.h"
#include "formats/LineOwner.h"
#include "lang/LanguageTexts.h"
#include "settings/Settings.h"

namespace zek {

/// The rules for reading the lines of a catalogue.
struct CatalogueRules {
  Catalogue kind = Catalogue::Wdc;
  std::string control;  // the time control of the catalogue; "" for a whole object
  Generation generation = Generation::Zek1;
  /// One catalogue contains the lines of all time controls of the controller.
  bool shared = false;
  CalendarYears years;
  char decimalSeparator = '.';
  std::vector<std::string> pltControls;  // of the object, see `LineOwner`
  /// The 14 days of the weekday table in texts; without them the keys of catalogue lines.
  std::vector<std::string> dayNames = {};

  LineOwner Owner() const { return {control, generation, pltControls}; }
};

/// The rules for a catalogue; the texts give the names of the days.
CatalogueRules RulesOf(const CatalogueId& id, const Settings& settings, const LanguageTexts& texts);

/// One entry of a catalogue, in a form that is equal in two catalogues with the same meaning. A
/// line about five days is five entries; line numbers and padding do not count.
struct CatalogueEntry {
  enum class Kind {
    Value,       // ".DFV"
    Entry,       // of a table
    Unreadable,  // a line that does not fit any table
  };

  Kind kind = Kind::Entry;
  std::string control;    // the control that it belongs to; "" for nobody, and in a calendar
  std::int64_t day = 0;   // weekday 0 to 13, or the date (`PackDate`, base `CalendarYears::kFirst`)
  std::int64_t time = 0;  // minutes: of the day, or of an exception's start
  std::string says;       // times and values, a day type, or the line without its number
  std::string surplus;    // a stop value where the "PLT" layout has no place for one
  int number = 0;         // of the line
  bool starred = false;   // the line holds a "*"
  bool tooMany = false;   // an exception beyond the table's last row
};

/// Returns all entries, in the order of the lines.
std::vector<CatalogueEntry> EntriesOf(const CatalogueContent& content, const CatalogueRules& rules);

/// True when `day` is the day after `before` and one line can hold both.
bool IsNextDay(const CatalogueRules& rules, std::int64_t before, std::int64_t day);

/// Returns an entry as text, "Mån..Fre  07:00..16:30  21  17", for the days `entry.day` to
/// `lastDay`. The name of another control comes first,
/// or for nobody's line its number.
std::string EntryText(const CatalogueEntry& entry, std::int64_t lastDay,
                      const CatalogueRules& rules);

}  // namespace zek
