#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "findings/Findings.h"
#include "forecast/EditedEntries.h"
#include "lang/LanguageTexts.h"
#include "settings/SpecialDayNames.h"

namespace zek {

/// The entry of a catalogue that a finding leads to; only the catalogue if it is about no entry.
struct EntryPlace {
  Catalogue catalogue = Catalogue::Wdc;
  std::optional<WeekdayCell> cell;       // of the weekdays
  std::optional<DayNumber> date;         // of the calendar
  std::optional<std::size_t> exception;  // row 0 to 7
};

/// A finding as a user reads it.
struct ShownFinding {
  FindingKind kind = FindingKind::UnreadLine;
  std::string place;  // "Mån-Fre, rad 2"
  std::string text;
  EntryPlace leads;
};

/// Shows findings in one catalogue of a schedule with own numbers (`OwnNumbers`).
struct FindingView {
  const Schedule& schedule;
  Catalogue catalogue;
  const LanguageTexts& texts;
  const SpecialDayNames& names;

  ShownFinding Show(const Finding& finding) const;

  /// Returns what a finding says of each cell: the same finding in fewer cells has fewer of these.
  std::vector<std::string> CellsOf(const Finding& finding) const;

 private:
  std::string PlaceText(const Finding& finding) const;
  std::string DayTypeText(const std::string& key) const;
  std::string RowText(int number) const;
  std::string DatesText(int number) const;
};

/// The number in the place of a finding: a line's, or an own one below 0; 0 without a number.
int NumberIn(const Finding& finding);

/// Returns the catalogue that a finding is in; nothing for a day type.
std::optional<Catalogue> CatalogueOf(const Finding& finding);

}  // namespace zek
