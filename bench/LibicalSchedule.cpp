#include "LibicalSchedule.h"

#include <array>
#include <libical/ical.h>
#include <memory>

#include "text/Numbers.h"

namespace zek::bench {
namespace {

constexpr std::array kDays = {"MO", "TU", "WE", "TH", "FR", "SA", "SU"};

struct FreeComponent {
  void operator()(icalcomponent* component) const { icalcomponent_free(component); }
};
using Component = std::unique_ptr<icalcomponent, FreeComponent>;

Component Parsed(const std::string& calendar) {
  return Component(icalparser_parse_string(calendar.c_str()));
}

std::string TimeOf(std::int16_t minutes) {
  return "20240101T" + ZeroPadded(minutes / 60, 2) + ZeroPadded(minutes % 60, 2) + "00";
}

std::string EventOf(const WeekdayRow& row, std::size_t day, std::size_t entry) {
  return "BEGIN:VEVENT\r\nUID:" + std::to_string(entry) + "\r\nDTSTART:" + TimeOf(row.start) +
         "\r\nDTEND:" + TimeOf(row.stop) +
         "\r\nRRULE:FREQ=WEEKLY;BYDAY=" + kDays.at(day % kDays.size()) +
         "\r\nSUMMARY:" + std::to_string(row.valueOn) + "\r\nEND:VEVENT\r\n";
}

}  // namespace

std::string IcalendarOf(const WeekdayTable& table) {
  std::string calendar = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:zekview-bench\r\n";
  std::size_t entry = 0;
  for (std::size_t row = 0; row < kWeekdayRows; ++row) {
    for (std::size_t day = 0; day < kWeekdayDays; ++day) {
      const WeekdayRow& cells = table.days.at(day).at(row);
      if (cells.Used()) calendar += EventOf(cells, day, entry++);
    }
  }
  return calendar + "END:VCALENDAR\r\n";
}

std::size_t CountEvents(const std::string& calendar) {
  const Component parsed = Parsed(calendar);
  return static_cast<std::size_t>(
      icalcomponent_count_components(parsed.get(), ICAL_VEVENT_COMPONENT));
}

std::string ParsedAndSerialised(const std::string& calendar) {
  const Component parsed = Parsed(calendar);
  const std::unique_ptr<char, decltype(&icalmemory_free_buffer)> text(
      icalcomponent_as_ical_string_r(parsed.get()), icalmemory_free_buffer);
  return text.get();
}

}  // namespace zek::bench
