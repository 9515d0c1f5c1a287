#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "import/ImportedDates.h"

namespace zek {

/// Returns why a file can't be text to import: too large, a line too long, characters of no text.
ImportReason CheckImportText(std::string_view bytes);

/// Returns UTF-8, without its mark, or windows-1252 as windows-1252.
std::string DecodedText(std::string_view bytes);

/// A name on one line, without control characters, and not longer than a list can show.
std::string ImportName(std::string_view name);

/// Parses digits alone as year, month and day (4, 2 and 2); nothing for other text. The date need
/// not exist.
std::optional<CalendarDate> DateDigits(std::string_view digits);

/// Takes an event's or a row's dates into what is imported.
class DateTaker {
 public:
  DateTaker(const ImportWindow& window, ImportedDates& to) : window_(window), to_(to) {}

  void Take(const CalendarDate& date, std::int16_t type, const std::string& name);
  void Skip(const ImportReason& reason, const std::string& name) {
    to_.skipped.push_back({reason, name});
  }
  /// True when there is more than a file may have.
  bool Full() const { return to_.dates.size() + to_.skipped.size() > kMostImported; }
  /// Makes it the only result that the file has too much.
  void Refuse();

 private:
  const ImportWindow& window_;
  ImportedDates& to_;
};

}  // namespace zek
