#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "formats/BuiltLines.h"
#include "formats/ExceptionTable.h"
#include "formats/Generation.h"
#include "settings/Settings.h"

namespace zek {

/// The text form of an exception catalogue: numbered lines, one an exception, with fields between
/// "!". Months are JAN to DEC. Columns count from 1.
///
/// | ZEK1                                      | ZEK2                                       |
/// |-------------------------------------------|--------------------------------------------|
/// | 1-5    line number, right-aligned         | 1-5    line number, left-aligned           |
/// | 7      "!"                                | 7-17   start date, DD-MON-YYYY             |
/// | 8-19   name, the first 12 characters      | 18-30  with a stop date: ".." and          |
/// | 20     "!"                                |        DD-MON-YYYY                         |
/// | 21-35  start, DD-MON-YY,HH:MM             | 32     "!"                                 |
/// | 36-52  with a stop date: ".." and         | 33-44  start..stop time, HH:MM..HH:MM      |
/// |        DD-MON-YY,HH:MM                    | 46     "!"                                 |
/// | 60     "!"                                | 47-52  start value, left-aligned           |
/// | 61-69  start value, left-aligned          | 53     "!"                                 |
/// | 70     "!"                                | 54-    stop value, "." for none            |
/// | 71-    stop value, "." for none           |                                            |
///
/// A start value of none is "." alone, without the blanks behind it. A ZEK1 line has years 1990 to
/// 2089 and, without a stop date, no stop time either. Line 101 of PLT1 and line 1 of a ZEK2:
///  "  101 !PLT1        !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16"
///  "1     24-DEC-2026..26-DEC-2026 !08:00..17:00 !21    !16"

/// Whose lines are meant. A ZEK1 lists the exceptions of all time controls together; what a ZEK2
/// lists is one control's.
struct ExceptionOwner {
  std::string name;  // compared in its case, by as much as a line holds
  Generation generation = Generation::Zek1;
};

/// A line that was not read.
struct RefusedException {
  /// text::kExceptionRefused or, for the one that was too many, text::kExceptionsFull.
  std::int32_t text = 0;
  std::string line;

  bool operator==(const RefusedException&) const = default;
};

struct ExceptionReading {
  ExceptionTable table;  // latest start first; in the order of the lines when there were too many
  std::vector<RefusedException> refused;
  /// Lines that are gone once the table is saved: refused ones, this control's after the one too
  /// many, and those dropped for a "*".
  std::size_t linesLost = 0;
};

/// Reads the owner's lines. A line whose first "*" stands in a column that is no multiple of 8 is
/// not read; a line that lacks a field or has a date or time that is none (an unknown month, a day
/// 0, no year) is refused. The line after the eighth ends the reading. Text that is no number reads
/// as 0, a stop time without a date beyond 24:00 as 24:00.
ExceptionReading ReadExceptions(std::span<const std::string> lines, const ExceptionOwner& owner);

/// The catalogue that follows on `lines`, the old one: on a ZEK1 first the lines of the others,
/// but for those with a "*", on a ZEK2 the table's lines alone. Line numbers start, for a "PLT"
/// name, at its number times `OVCMultiplyPLT` plus `OVCStartRow`, else at the first old line's
/// number or, without one, at `OVCStartRow`. A 202nd line, and a line number, start value or year
/// that its columns can't hold, gives an error and no lines.
BuiltLines BuildExceptions(const ExceptionTable& table, const ExceptionOwner& owner,
                           std::span<const std::string> lines, const ExceptionOptions& options,
                           char decimalSeparator);

/// How the lines of an exception catalogue are numbered, see `BuildExceptions`.
struct ExceptionOptions {
  std::int16_t OVCStartRow = 1;
  std::int16_t OVCMultiplyPLT = 0;
};

/// The settings of section `SaveOptionsZEK1` or `SaveOptionsZEK2`, by default 1 and 100 or 1 and 0.
/// Nothing when one does not fit 16 bits, which was told.
std::optional<ExceptionOptions> ReadExceptionOptions(const NumberReader& numbers,
                                                     Generation generation);

/// The rows whose stop time no line of theirs can hold, as "24-DEC-26,08:00..17:00": on a ZEK1 a
/// stop stands in the line with its date or not at all.
std::vector<std::string> LostStopTimes(const ExceptionTable& table, Generation generation);

}  // namespace zek
