#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "forecast/Forecast.h"
#include "formats/CalendarNames.h"
#include "lang/LanguageTexts.h"
#include "picture/Palette.h"

namespace zek {

/// Words for what applies, in the language of the program, windows-1252.
class SceneWords {
 public:
  /// `value` prints a value, with its name if it has one.
  SceneWords(const LanguageTexts& texts, SpecialDayNames names,
             std::function<std::string(float)> value)
      : texts_(texts), names_(std::move(names)), value_(std::move(value)) {}

  const LanguageTexts& Texts() const { return texts_; }

  /// "Mån 2026-12-07"; "Mån 2026-12-07 06:30"; "inget värde"
  std::string Day(DayNumber day) const;
  std::string When(Moment moment) const;
  /// "Mån" for 0, "SD1 Jullov" for 7.
  std::string DayType(std::size_t type) const { return DayTypeName(type, texts_, names_); }
  std::string Value(MaybeValue value) const;

  /// "Veckodag, rad nr 1000, start"; of an entry without a line "Mån, rad 2, start".
  std::string Source(const SwitchSource& source, const Schedule& schedule) const;

 private:
  const LanguageTexts& texts_;
  SpecialDayNames names_;
  std::function<std::string(float)> value_;
};

/// "06:30", 24:00 at the end of a day.
std::string TimeOfDayText(int minute);

/// Returns whether a source is a row of a weekday or of a special day, an exception or nothing.
BarKind KindOf(const SwitchSource& source, const Schedule& schedule);

/// Names the switches of a rule that are on, in one sentence; "" if there is none.
std::string RuleWords(const Rule& rule, const LanguageTexts& texts);

/// Tells in sentences what applies at a moment and why, what comes next, and what lost.
std::vector<std::string> Explanation(const Forecast& forecast, const Schedule& schedule,
                                     Moment moment, const SceneWords& words);

}  // namespace zek
