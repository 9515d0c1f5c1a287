#include "plan/ChangeEntry.h"

#include "editors/Entry.h"
#include "formats/ExceptionCells.h"
#include "formats/WeekdayCells.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

CalendarDate DateIn(Moment moment) {
  const DateParts parts = DateOf(moment);
  return {parts.year, parts.month - 1, parts.day};
}

bool IsEmpty(const std::string& text) { return Trim(text).empty(); }

// Reads the fields of one entry. The first problem is kept; what is read after it does not count.
class EntryReader {
 public:
  EntryReader(const ChangeEntry& entry, const PickList& names, const LanguageTexts& texts)
      : entry_(entry), names_(names), texts_(texts) {}

  EnteredChange Read() {
    ListedChange change = Change();
    if (result_.why.empty()) result_.change = std::move(change);
    return std::move(result_);
  }

 private:
  ListedChange Change() {
    switch (entry_.kind) {
      case ChangeKind::GiveType:
      case ChangeKind::TakeType:
        return Dates();
      case ChangeKind::AddException:
        return Exception();
      case ChangeKind::EndException:
        return ExceptionChange{false, {.used = true, .start = Start()}};
      case ChangeKind::AddRow:
      case ChangeKind::EndRow:
        break;
    }
    return Rows();
  }

  CalendarChange Dates() {
    const Moment first = Date(ChangeField::FirstDate, entry_.firstDate);
    const Moment last =
        IsEmpty(entry_.lastDate) ? first : Date(ChangeField::LastDate, entry_.lastDate);
    if (last < first) Bad(ChangeField::LastDate, texts_.Text(text::kStopFirst));
    const bool gives = entry_.kind == ChangeKind::GiveType;
    return {DateIn(first), DateIn(last), gives ? entry_.type : kNoDayType};
  }

  Moment Start() {
    return Date(ChangeField::FirstDate, entry_.firstDate) + Time(ChangeField::Start, entry_.start);
  }

  // A stop without a date is on the start's date; without date and time there is none.
  ExceptionChange Exception() {
    ExceptionChange change{true, {.used = true, .start = Start()}};
    OvcRow& row = change.row;
    if (!IsEmpty(entry_.lastDate) || !IsEmpty(entry_.stop)) {
      const std::string& date = IsEmpty(entry_.lastDate) ? entry_.firstDate : entry_.lastDate;
      row.stop = Date(ChangeField::LastDate, date) + Time(ChangeField::Stop, entry_.stop);
      if (row.stop < row.start) Bad(ChangeField::Stop, texts_.Text(text::kStopFirst));
    }
    row.valueOn = Value(ChangeField::Value, entry_.value, true);
    row.valueOff = Value(ChangeField::StopValue, entry_.stopValue, true);
    return change;
  }

  WeekdayChange Rows() {
    WeekdayChange change{entry_.kind == ChangeKind::AddRow, entry_.days, {}};
    if (entry_.days.empty()) Bad(ChangeField::Days, texts_.Text(text::kSeveralNoDay));
    change.row.start = Clock(ChangeField::Start, entry_.start, false);
    if (!change.add) return change;
    change.row.stop = Clock(ChangeField::Stop, entry_.stop, true);
    change.row.valueOn = Value(ChangeField::Value, entry_.value, false);
    change.row.valueOff = Value(ChangeField::StopValue, entry_.stopValue, true);
    return change;
  }

  Moment Date(ChangeField field, const std::string& typed) {
    const auto date = TypedExceptionDate(typed);
    if (!date) Refuse(field, {text::kDateWrong, text::kDateHint, typed, {}});
    return date.value_or(0);
  }

  Moment Time(ChangeField field, const std::string& typed) {
    const auto time = TypedExceptionTime(typed);
    if (!time) Refuse(field, {text::kTimeWrong, text::kTimeHint, typed, {}});
    return time.value_or(0);
  }

  std::int16_t Clock(ChangeField field, const std::string& typed, bool mayMiss) {
    const auto time = TypedTime(typed);
    if (!time || (*time == kNoTime && !mayMiss))
      Refuse(field, {text::kTimeWrong, text::kTimeHint, typed, {}});
    return time.value_or(kNoTime);
  }

  float Value(ChangeField field, const std::string& typed, bool mayMiss) {
    const auto value = IsEmpty(typed) ? kNoValue : TypedValue(typed, names_);
    if (!value || (*value == kNoValue && !mayMiss))
      Refuse(field, {text::kValueWrong, text::kValueHint, typed, {}});
    return value.value_or(kNoValue);
  }

  void Refuse(ChangeField field, const Refusal& refusal) {
    Bad(field, refusal.MessageIn(texts_, " "));
  }
  void Bad(ChangeField field, std::string why) {
    if (!result_.why.empty()) return;
    result_.wrong = field;
    result_.why = std::move(why);
  }

  const ChangeEntry& entry_;
  const PickList& names_;
  const LanguageTexts& texts_;
  EnteredChange result_;
};

}  // namespace

bool Counts(ChangeField field, ChangeKind kind) {
  const bool calendar = kind <= ChangeKind::TakeType;
  const bool rows = kind >= ChangeKind::AddRow;
  const bool adds = kind == ChangeKind::AddException || kind == ChangeKind::AddRow;
  switch (field) {
    case ChangeField::Days:
      return rows;
    case ChangeField::FirstDate:
      return !rows;
    case ChangeField::Start:
      return !calendar;
    case ChangeField::LastDate:
      return calendar || kind == ChangeKind::AddException;
    case ChangeField::Type:
      return kind == ChangeKind::GiveType;
    case ChangeField::Stop:
    case ChangeField::Value:
    case ChangeField::StopValue:
      break;
  }
  return adds;
}

EnteredChange EnterChange(const ChangeEntry& entry, const PickList& names,
                          const LanguageTexts& texts) {
  return EntryReader(entry, names, texts).Read();
}

}  // namespace zek
