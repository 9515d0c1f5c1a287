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
#include "formats/LineOwner.h"
#include "settings/Settings.h"

namespace zek {

/// The numbering of the lines of an exception catalogue, see `BuildExceptions`.
struct ExceptionOptions {
  std::int16_t OVCStartRow = 1;
  std::int16_t OVCMultiplyPLT = 0;
};

/// The text form of an exception catalogue: numbered lines, one for each exception, with fields
/// separated by "!". Months are JAN to DEC. Columns count from 1.
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
/// A missing start value is "." alone, without trailing blanks. A ZEK1 line has years 1990 to 2089
/// and, without a stop date, no stop time either. Line 101 of PLT1 and line 1 of a ZEK2:
///  "  101 !PLT1        !24-DEC-26,08:00..26-DEC-26,17:00       !21       !16"
///  "1     24-DEC-2026..26-DEC-2026 !08:00..17:00 !21    !16"

/// A line that was not read.
struct RefusedException {
  /// text::kExceptionRefused or, for the first line beyond the table, text::kExceptionsFull.
  std::int32_t text = 0;
  std::string line;

  bool operator==(const RefusedException&) const = default;
};

/// An exception as its line says it.
struct ExceptionLine {
  OvcRow row;
  int number = 0;  // of the line
};

struct ExceptionReading {
  ExceptionTable table;  // latest start first; in the order of the lines if there were too many
  std::vector<RefusedException> refused;
  /// The number of the owner's lines that saving the table would lose: refused ones, those not read
  /// because of a "*", and all from the first one beyond the table on.
  std::size_t linesLost = 0;
  std::vector<std::string>
      unread;  // those lines; up to the end of the reading without those with a "*"
  std::vector<ExceptionLine> inOrder;  // the rows of `table`, in the order of the lines
};

/// Parses the owner's lines (see `SplitExceptions`). A line whose first "*" is in a column that is
/// not a multiple of 8 is not read. A line is refused if it lacks a field or has an invalid date or
/// time (an unknown month, a day 0, no year, 25:00); blanks and "*" after a date do no harm. The
/// first line after eight exceptions ends the reading. Text that is not a number reads as 0, a stop
/// time without a date beyond 24:00 as 24:00.
ExceptionReading ReadExceptions(std::span<const std::string> lines, const LineOwner& owner);

/// Builds the catalogue that replaces the old one, `lines`. The lines of others come first, except
/// those with a "*". Line numbers start, for a "PLT" name, at its number times `OVCMultiplyPLT`
/// plus `OVCStartRow`; for others at the first old line's number or, without one, at `OVCStartRow`.
/// No line gets a number of another control's old line. A 202nd line, or a line number, start value
/// or year that does not fit its columns, returns an error and no lines.
BuiltLines BuildExceptions(const ExceptionTable& table, const LineOwner& owner,
                           std::span<const std::string> lines, const ExceptionOptions& options,
                           char decimalSeparator);

/// Returns the owner's lines `own` with new numbers, as `BuildExceptions` gives them to lines that
/// replace those in `fetched`; the rest of each line stays. Returns the same errors.
BuiltLines NumberExceptions(std::span<const std::string> own, std::span<const std::string> fetched,
                            const LineOwner& owner, const ExceptionOptions& options);

/// Reads the settings of section `SaveOptionsZEK1` (default 1 and 100) or `SaveOptionsZEK2`
/// (default 1 and 0). Returns nothing, after a message, if one does not fit 16 bits.
std::optional<ExceptionOptions> ReadExceptionOptions(const NumberReader& numbers,
                                                     Generation generation);

/// Returns the rows whose stop time does not fit into a line, as "24-DEC-26,08:00..17:00": a ZEK1
/// line has a stop time only together with a stop date.
std::vector<std::string> LostStopTimes(const ExceptionTable& table, Generation generation);

}  // namespace zek
