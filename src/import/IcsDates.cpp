#include "import/IcsDates.h"

#include <algorithm>
#include <libical/ical.h>
#include <map>
#include <memory>
#include <optional>
#include <set>

#include "formats/ExceptionTable.h"
#include "import/IcsEvents.h"
#include "import/ImportText.h"
#include "import/Repetition.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

constexpr std::chrono::milliseconds kRulesTime{2000};
constexpr std::int64_t kSecondsOfDay = 86400;
constexpr std::size_t kMostDays =
    4 * kCalendarEntries;  // of an event, with those before the window

ImportReason TooManyDates() {
  return {text::kImportTooManyDates, std::to_string(kCalendarEntries)};
}

struct FreeComponent {
  void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

struct FreeIterator {
  void operator()(icalrecur_iterator* iterator) const { icalrecur_iterator_free(iterator); }
};
using Iterator = std::unique_ptr<icalrecur_iterator, FreeIterator>;

CalendarDate DateIn(const icaltimetype& time) { return {time.year, time.month - 1, time.day}; }

std::int64_t SecondOf(const icaltimetype& time) {
  constexpr std::int64_t minute = 60;
  constexpr std::int64_t hour = 3600;
  const Moment day = DateMoment(time.year, time.month, time.day) / kMinutesOfDay;
  return day * kSecondsOfDay + time.hour * hour + time.minute * minute + time.second;
}

std::int64_t SecondsIn(const icaldurationtype& duration) {
  constexpr std::int64_t week = 7;
  const std::int64_t days = duration.weeks * week + duration.days;
  const std::int64_t hours = days * 24 + duration.hours;
  return (hours * 60 + duration.minutes) * 60 + duration.seconds;
}

// Calls `take` with each property of a kind.
template <class Take>
void ForEach(icalcomponent* event, icalproperty_kind kind, Take take) {
  for (icalproperty* each = icalcomponent_get_first_property(event, kind); each != nullptr;
       each = icalcomponent_get_next_property(event, kind))
    take(each);
}

using Keys = std::set<std::int32_t>;
using Replaced = std::map<std::string, Keys>;  // by the events' UID

// The time that is left for all repetitions of a file.
class TimeLeft {
 public:
  explicit TimeLeft(const ImportClock& now) : now_(now) {}

  bool Over() const { return used_ + (now_() - began_) >= kRulesTime; }
  void Begin() { began_ = now_(); }
  void End() { used_ += now_() - began_; }

 private:
  const ImportClock& now_;
  std::chrono::milliseconds began_{};
  std::chrono::milliseconds used_{};
};

// Computes the first days of one event and how many days each of them lasts.
class EventDays {
 public:
  EventDays(icalcomponent* event, const ImportWindow& window, TimeLeft& time)
      : event_(event), window_(window), time_(time) {}

  ImportReason Compute() {
    icalproperty* const start = icalcomponent_get_first_property(event_, ICAL_DTSTART_PROPERTY);
    if (start == nullptr) return {text::kImportNoDate};
    if (icalcomponent_count_errors(event_) > 0) return {text::kImportBadEntry};
    start_ = icalproperty_get_dtstart(start);
    if (ImportReason reason = ComputeLength()) return reason;
    ImportReason reason;
    bool repeats = false;
    ForEach(event_, ICAL_RRULE_PROPERTY, [&](icalproperty* rule) {
      repeats = true;
      time_.Begin();
      if (!reason) reason = Repeat(icalproperty_get_rrule(rule));
      time_.End();
    });
    if (!repeats) first_.insert(ImportKey(DateIn(start_)));
    ForEach(event_, ICAL_RDATE_PROPERTY, [this](icalproperty* date) {
      first_.insert(ImportKey(DateIn(icalproperty_get_rdate(date).time)));
    });
    ForEach(event_, ICAL_EXDATE_PROPERTY, [this](icalproperty* date) {
      first_.erase(ImportKey(DateIn(icalproperty_get_exdate(date))));
    });
    return reason;
  }

  const Keys& First() const { return first_; }
  int Length() const { return length_; }

 private:
  // An end at midnight is not a day of the event.
  ImportReason ComputeLength() {
    std::int64_t end = SecondOf(start_);
    ForEach(event_, ICAL_DURATION_PROPERTY, [&](icalproperty* duration) {
      const icaldurationtype lasts = icalproperty_get_duration(duration);
      end += (lasts.is_neg != 0 ? -1 : 1) * SecondsIn(lasts);
    });
    ForEach(event_, ICAL_DTEND_PROPERTY,
            [&](icalproperty* given) { end = SecondOf(icalproperty_get_dtend(given)); });
    const std::int64_t first = SecondOf(start_) / kSecondsOfDay;
    if (end < first * kSecondsOfDay) return {text::kImportEndFirst};
    const std::int64_t days = (end + kSecondsOfDay - 1) / kSecondsOfDay - first;
    if (days > static_cast<std::int64_t>(kCalendarEntries)) return TooManyDates();
    length_ = std::max(1, static_cast<int>(days));
    return {};
  }

  ImportReason Repeat(icalrecurrencetype rule) {
    if (time_.Over()) return {text::kImportTooSlow};
    const CalendarDate start = DateIn(start_);
    if (!MayOccur(rule, start)) return {text::kImportNever};
    const bool endless = icaltime_is_null_time(rule.until) != 0 && rule.count == 0;
    CalendarDate last = UnpackDate(window_.last, 0);
    if (endless && !window_.lastIsAsked) last.year = std::min(last.year, window_.lastOfEndless);
    icaltimetype until = icaltime_null_date();
    until.year = last.year;
    until.month = last.month + 1;
    until.day = last.day;
    if (icaltime_is_null_time(rule.until) != 0 || ImportKey(DateIn(rule.until)) > ImportKey(last))
      rule.until = until;
    icaltimetype from = start_;
    icaltime_set_timezone(&from, nullptr);
    from.is_date = 1;
    from.hour = from.minute = from.second = 0;
    return Step(Iterator(icalrecur_iterator_new(rule, from)));
  }

  ImportReason Step(const Iterator& iterator) {
    if (!iterator) return {text::kImportNever};
    bool any = false;
    for (;;) {
      if (time_.Over()) return {text::kImportTooSlow};
      const icaltimetype next = icalrecur_iterator_next(iterator.get());
      if (icaltime_is_null_time(next) != 0) break;
      any = true;
      const std::int32_t key = ImportKey(DateIn(next));
      constexpr std::int32_t longest = 3 * 512;  // keys of three years: more than an event can last
      if (next.year < CalendarYears::kFirst || key + longest < window_.first) continue;
      first_.insert(key);
      if (first_.size() > kMostDays) return TooManyDates();
    }
    if (any || window_.lastIsAsked) return {};
    const bool late = start_.year > window_.years.Last();
    return {late ? text::kImportYear : text::kImportNever};
  }

  icalcomponent* event_;
  const ImportWindow& window_;
  TimeLeft& time_;
  icaltimetype start_{};
  Keys first_;
  int length_ = 1;
};

class IcsReader {
 public:
  IcsReader(const ImportWindow& window, const ImportClock& now, ImportedDates& to)
      : window_(window), time_(now), to_(to), taker_(window, to) {}

  void Read(const IcsFile& file) {
    for (const IcsEvent& event : file.events)
      if (event.replaces) replaced_[event.uid].insert(*event.replaces);
    for (const IcsEvent& event : file.events) {
      const ImportReason reason = event.reason ? event.reason : Take(event);
      if (reason) taker_.Skip(reason, event.name);
      if (taker_.Full()) return taker_.Refuse();
    }
    if (file.cut) taker_.Skip({text::kImportCutOff}, "VCALENDAR");
  }

 private:
  ImportReason Take(const IcsEvent& event) {
    std::string text = "BEGIN:VEVENT\r\n";
    for (const std::string& line : event.lines) text += line + "\r\n";
    const Component component(icalparser_parse_string((text + "END:VEVENT\r\n").c_str()));
    if (!component) return {text::kImportBadEntry};
    EventDays days(component.get(), window_, time_);
    if (ImportReason reason = days.Compute()) return reason;
    const auto replaced = replaced_.find(event.uid);
    Keys all;
    for (const std::int32_t first : days.First()) {
      const bool gone = !event.replaces && !event.uid.empty() && replaced != replaced_.end() &&
                        replaced->second.contains(first);
      std::int32_t key = first;
      for (int day = 0; !gone && day < days.Length(); ++day, key = NextKey(key, 0)) {
        all.insert(key);
        if (all.size() > kMostDays) return TooManyDates();
      }
    }
    const std::size_t before = to_.dates.size();
    for (const std::int32_t key : all) taker_.Take(UnpackDate(key, 0), kNoDayType, event.name);
    if (to_.dates.size() - before <= kCalendarEntries) return {};
    to_.dates.resize(before);
    return TooManyDates();
  }

  const ImportWindow& window_;
  TimeLeft time_;
  ImportedDates& to_;
  DateTaker taker_;
  Replaced replaced_;
};

}  // namespace

ImportedDates ReadIcsDates(std::string_view bytes, const ImportWindow& window,
                           const ImportClock& now) {
  ImportedDates imported;
  const IcsFile file = ReadIcsEvents(bytes);
  imported.refused = file.refused;
  if (!imported.refused) IcsReader(window, now, imported).Read(file);
  return imported;
}

}  // namespace zek
