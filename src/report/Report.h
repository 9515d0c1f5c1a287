#pragma once

#include <span>
#include <string>
#include <vector>

#include "editors/PickList.h"
#include "findings/Findings.h"

namespace zek {

/// One time control of a report. Texts are windows-1252.
struct ReportedControl {
  std::string node;                // "SKOLA/AHU1"
  std::string name;                // as the browser shows it
  std::vector<std::string> reads;  // of each catalogue, when and from where it was read
  ControlTables tables;
  std::vector<Finding> findings;  // of the control, then of its controller's catalogues
  PickList values;
};

struct ReportContext {
  const LanguageTexts& texts;
  DayNumber today = 0;  // the week of this day is shown
  int year = 0;         // of the calendar
  char decimalSeparator = '.';
};

/// Returns a report of time controls as one HTML file, UTF-8, to read and to print on A4. It has
/// neither scripts nor references. Each control has a picture and a table of the week, its tables,
/// a picture and a table of the year's calendar, and what is probably not meant. Equal input gives
/// equal bytes.
std::string ReportOf(std::span<const ReportedControl> controls, const ReportContext& context);

}  // namespace zek
