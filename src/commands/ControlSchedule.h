#pragma once

#include <array>
#include <optional>
#include <string>

#include "commands/Commands.h"
#include "forecast/Schedule.h"

namespace zek::cli {

/// The three catalogues of a time control as they were read.
struct ReadSchedule {
  WeekdayReading weekdays;
  CalendarReading calendar;
  ExceptionReading exceptions;
  std::array<std::optional<std::string>, 2> standards;  // ".DFV" of weekdays and of exceptions
  /// False if a line could not be read or a local copy is missing.
  bool complete = true;

  Schedule ToSchedule() const {
    return ScheduleOf(weekdays, calendar, exceptions, standards[0], standards[1]);
  }
};

/// Reads the catalogues of a time control. Lines that could not be read are named on standard
/// error. Returns nothing, after a message, if a catalogue could not be fetched.
std::optional<ReadSchedule> ReadControl(Console& console, std::size_t node);

/// Returns the time control named by an operand; nothing, after a message, if there is none.
std::optional<std::size_t> ControlOperand(Console& console, const std::string& name);

}  // namespace zek::cli
