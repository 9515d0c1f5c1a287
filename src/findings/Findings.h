#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "findings/FindingKinds.h"
#include "forecast/Rule.h"
#include "forecast/Schedule.h"
#include "formats/LineOwner.h"
#include "lang/LanguageTexts.h"
#include "settings/SpecialDayNames.h"

namespace zek {

/// Returns the name of a day type's key, "SD1 Jullov" for "SD1"; any other text as it is.
std::string WithNameOfDay(const std::string& key, const LanguageTexts& texts,
                          const SpecialDayNames& names);

/// Something in the catalogues that is probably not meant.
struct Finding {
  FindingKind kind = FindingKind::UnreadLine;
  /// An entry, which is a whole catalogue line ("wdc 1000", "sdc 1", "ovc 3"), or what it is about
  /// ("sdc", "wdc MO", "SD4").
  std::string place;
  std::array<std::string, 3> words;  // for its text

  /// Day types among the words get their names.
  std::string Text(const LanguageTexts& texts, const SpecialDayNames& names) const;

  bool operator==(const Finding&) const = default;
};

/// Which catalogues of a time control are known.
struct KnownCatalogues {
  bool weekdays = true;
  bool calendar = true;
  bool exceptions = true;

  bool All() const { return weekdays && calendar && exceptions; }

  /// Says which are missing and that what needs them is not judged; "" if none is.
  std::string NotJudged(const LanguageTexts& texts) const;
};

/// The number of lines of each catalogue that were listed and had no place in it.
struct LinesBeyond {
  std::size_t weekdays = 0;
  std::size_t calendar = 0;
  std::size_t exceptions = 0;
};

/// The catalogues of one time control, as they were read. The calendar is its controller's; of a
/// ZEK1 so are the lines of the others.
struct ControlTables {
  LineOwner owner;
  std::vector<std::string> weekdayLines;
  std::vector<std::string> calendarLines;
  std::vector<std::string> exceptionLines;
  WeekdayReading weekdays;
  CalendarReading calendar{CalendarTable(CalendarYears::kFirst), {}, 0, {}, {}, {}};
  ExceptionReading exceptions;
  Schedule schedule;
  KnownCatalogues known;  // the others are empty
  LinesBeyond beyond;
  Rule rule;                        // as it was chosen for the controller
  std::vector<float> listedValues;  // of its pick-list; empty without one
  SpecialDayNames dayNames;
};

/// What findings depend on besides the catalogues.
struct FindingContext {
  DayNumber today = 0;
  bool swedishHolidays = false;  // public holidays should be in the calendar
  char decimalSeparator = '.';
  bool prove = true;  // false: leave out what is without effect, which takes long to prove
};

/// Returns what is found in the weekdays and the exceptions of a time control, as far as its known
/// catalogues tell. A line is without effect only if every value of the ten years from today on is
/// the same without it, by every variant of the rule. Dated entries that are over are not judged
/// so.
std::vector<Finding> FindingsOf(const ControlTables& control, const FindingContext& context);

/// Returns of these only the special days that the calendar uses and that have no rows.
std::vector<Finding> TypesWithoutRows(const ControlTables& control, const FindingContext& context);

/// Returns what is found in the catalogues that the time controls of a controller share: the
/// calendar, and of a ZEK1 the lines of all. With `all`, these are all of its controls, and a date
/// is without effect if it is so for each.
std::vector<Finding> SharedFindings(std::span<const ControlTables> controls, bool all,
                                    const FindingContext& context);

}  // namespace zek
