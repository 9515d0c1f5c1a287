#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/ImportedDates.h"

namespace zek {

/// An event of a calendar file, checked and cut to what its dates depend on, so that libical can
/// read it: it has been measured to take long, or to accept what does not exist, with other text.
struct IcsEvent {
  ImportReason reason;  // why it is skipped
  std::string name;     // see `ImportName`
  std::string uid;
  std::optional<std::int32_t> replaces;  // the day of the repetition `uid` that it replaces
  std::vector<std::string> lines;        // DTSTART, DTEND, DURATION, RRULE, RDATE, EXDATE
};

struct IcsFile {
  ImportReason refused;
  std::vector<IcsEvent> events;
  bool cut = false;  // the calendar has no end
};

/// Finds the events of a calendar file.
IcsFile ReadIcsEvents(std::string_view bytes);

}  // namespace zek
