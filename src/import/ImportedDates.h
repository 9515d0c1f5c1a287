#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "formats/CalendarTable.h"
#include "formats/CalendarText.h"
#include "lang/Messages.h"

namespace zek {

inline constexpr std::size_t kLargestImport = std::size_t{1} << 20;  // bytes of a file
inline constexpr std::size_t kLongestImportLine = std::size_t{64} << 10;
inline constexpr std::size_t kMostImported = 10000;  // rows, events or dates of a file

/// A date that a file or the computed holidays propose for the calendar.
struct ImportedDate {
  CalendarDate date;
  std::int16_t type = kNoDayType;  // `kNoDayType`: the source names none
  std::string name;                // windows-1252, without control characters

  bool operator==(const ImportedDate&) const = default;
};

/// Why something is not imported: a text number and the value for its %1.
struct ImportReason {
  std::int32_t text = 0;
  std::string value{};

  explicit operator bool() const { return text != 0; }
  std::string In(const LanguageTexts& texts) const { return Message(texts.Text(text), {value}); }
};

/// A row or an event of which not all dates are imported.
struct SkippedItem {
  ImportReason reason;
  std::string name;
};

struct ImportedDates {
  ImportReason refused;  // why nothing of the file is imported
  std::vector<ImportedDate> dates;
  std::vector<SkippedItem> skipped;
};

/// The dates that are wanted. Others are left out silently, except those that the controller can't
/// hold.
struct ImportWindow {
  CalendarYears years;
  std::int32_t first = 0;   // keys, see `ImportKey`
  std::int32_t last = 0;    // at most the last day of `years`
  int lastOfEndless = 0;    // the last year for a repetition without an end
  bool lastIsAsked = true;  // false: `last` is only the end of the years
};

/// A day as a number with the order of dates.
inline std::int32_t ImportKey(const CalendarDate& date) { return PackDate(date, 0); }

/// A clock that only goes forward, for the limit on the time that the repetitions of a file take.
using ImportClock = std::function<std::chrono::milliseconds()>;

}  // namespace zek
