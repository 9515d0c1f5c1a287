#include "findings/FindingKinds.h"

#include <array>

#include "lang/TextNumbers.h"

namespace zek {
namespace {

using enum FindingKind;
constexpr Severity E = Severity::Error;
constexpr Severity W = Severity::Warning;
constexpr Severity I = Severity::Information;

// In the order of `FindingKind`.
constexpr auto kInfos = std::to_array<FindingInfo>({
    {UnreadLine, "unread-line", E, text::kFindingUnreadLine},
    {OverLimit, "over-limit", E, text::kFindingOverLimit},
    {RowStopEarly, "row-stop-early", W, text::kFindingRowStopEarly},
    {ExceptionStopEarly, "exception-stop-early", W, text::kFindingExceptionStopEarly},
    {RowsOverlap, "rows-overlap", W, text::kFindingRowsOverlap},
    {RowsOverlapSame, "rows-overlap-same", W, text::kFindingRowsOverlapSame},
    {RowsEqual, "rows-equal", W, text::kFindingRowsEqual},
    {RowNoEffect, "row-no-effect", W, text::kFindingRowNoEffect},
    {ExceptionNoEffect, "exception-no-effect", I, text::kFindingExceptionNoEffect},
    {DateNoEffect, "date-no-effect", I, text::kFindingDateNoEffect},
    {ExceptionEmpty, "exception-empty", I, text::kFindingExceptionEmpty},
    {ExceptionOver, "exception-over", I, text::kFindingExceptionOver},
    {DateOver, "date-over", I, text::kFindingDateOver},
    {ExceptionsOverlap, "exceptions-overlap", W, text::kFindingExceptionsOverlap},
    {DateTwoTypes, "date-two-types", W, text::kFindingDateTwoTypes},
    {DateTwice, "date-twice", I, text::kFindingDateTwice},
    {TypeWithoutRows, "type-without-rows", I, text::kFindingTypeWithoutRows},
    {TypeUnused, "type-unused", I, text::kFindingTypeUnused},
    {CalendarEnds, "calendar-ends", W, text::kFindingCalendarEnds},
    {HolidayMissing, "holiday-missing", I, text::kFindingHolidayMissing},
    {NearlyFull, "nearly-full", I, text::kFindingNearlyFull},
    {ValueNotListed, "value-not-listed", I, text::kFindingValueNotListed},
    {StopValueDropped, "stop-value-dropped", W, text::kFindingStopValueDropped},
    {NumberTwice, "number-twice", W, text::kFindingNumberTwice},
    {OwnerlessLine, "ownerless-line", W, text::kFindingOwnerlessLine},
    {StarredLine, "starred-line", I, text::kFindingStarredLine},
    {StopWithoutValue, "stop-without-value", I, text::kFindingStopWithoutValue},
    {ExceptionFar, "exception-far", I, text::kFindingExceptionFar},
    {NoRows, "no-rows", I, text::kFindingNoRows},
    {StartNotEntered, "start-not-entered", W, text::kNoStartValue},
});
static_assert(kInfos.size() == kFindingKinds);

}  // namespace

const FindingInfo& InfoOf(FindingKind kind) { return kInfos.at(static_cast<std::size_t>(kind)); }

}  // namespace zek
