#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zek {

/// How sure it is that something goes wrong.
enum class Severity : char {
  Error = 'E',        // it does
  Warning = 'W',      // it is probably not meant
  Information = 'I',  // it may be meant
};

/// What can be found in the catalogues of a plant, see `InfoOf`.
enum class FindingKind : std::uint8_t {
  UnreadLine,
  OverLimit,
  RowStopEarly,
  ExceptionStopEarly,
  RowsOverlap,
  RowsOverlapSame,
  RowsEqual,
  RowNoEffect,
  ExceptionNoEffect,
  DateNoEffect,
  ExceptionEmpty,
  ExceptionOver,
  DateOver,
  ExceptionsOverlap,
  DateTwoTypes,
  DateTwice,
  TypeWithoutRows,
  TypeUnused,
  CalendarEnds,
  HolidayMissing,
  NearlyFull,
  ValueNotListed,
  StopValueDropped,
  NumberTwice,
  OwnerlessLine,
  StarredLine,
  StopWithoutValue,
  ExceptionFar,
  NoRows,
  StartNotEntered,  // only in an open editor: a line has a value
};

inline constexpr std::size_t kFindingKinds =
    static_cast<std::size_t>(FindingKind::StartNotEntered) + 1;

struct FindingInfo {
  FindingKind kind = FindingKind::UnreadLine;
  std::string_view code;  // stable: scripts look for it
  Severity severity = Severity::Information;
  std::int32_t text = 0;  // the number of its text; the places are the words of a finding
};

const FindingInfo& InfoOf(FindingKind kind);

}  // namespace zek
