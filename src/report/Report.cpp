#include "report/Report.h"

#include "findings/SeverityText.h"
#include "forecast/MomentText.h"
#include "formats/CalendarNames.h"
#include "formats/ExceptionCells.h"
#include "formats/SwedishHolidays.h"
#include "formats/WeekdayCells.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "picture/ForecastScene.h"
#include "picture/Svg.h"
#include "report/Html.h"
#include "report/YearPicture.h"
#include "text/Markup.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

constexpr int kDaysOfWeek = 7;
// The first of four: start time, stop time, start value, stop value.
constexpr std::int32_t kStartTime = text::kWeekdayCaption + 2;

// On paper: the heading of a table on each of its pages, no row and no picture cut.
constexpr std::string_view kStyle =
    "@page { size: A4; margin: 15mm; }\n"
    "body { font-family: sans-serif; font-size: 10pt; color: #000; background: #fff; }\n"
    "section { break-before: page; page-break-before: always; }\n"
    "section:first-of-type { break-before: auto; page-break-before: auto; }\n"
    "table { border-collapse: collapse; margin: 0 0 5mm 0; }\n"
    "caption { text-align: left; font-weight: bold; margin: 2mm 0 1mm 0; }\n"
    "th, td { border: 1px solid #777; padding: 1mm 2mm; text-align: left; }\n"
    "thead { display: table-header-group; }\n"
    "tr, svg { break-inside: avoid; page-break-inside: avoid; }\n"
    "h1, h2, h3, caption { break-after: avoid; }\n"
    "svg { max-width: 100%; height: auto; }\n";

// Without the first line of an XML document, which has no place inside of a page.
std::string Inside(const std::string& svg) { return svg.substr(svg.find("<svg")); }

// One control of the report.
class Section {
 public:
  Section(const ReportedControl& control, const ReportContext& context, std::size_t number)
      : control_(control),
        context_(context),
        number_(number),
        schedule_(control.tables.schedule),
        forecast_(schedule_, control.tables.rule) {}

  std::string Html() const {
    std::string html = "<section>\n" + HtmlElement("h2", control_.name + " - " + control_.node);
    html += "<ul>\n";
    for (const std::string& read : control_.reads) html += HtmlElement("li", read);
    return html + "</ul>\n" + Week() + Weekdays() + Exceptions() + Year() + Unread() + Findings() +
           "</section>\n";
  }

 private:
  std::string Text(std::int32_t number) const { return context_.texts.Text(number); }
  std::string None() const { return Text(text::kReportNone); }

  std::string Named(const std::string& value) const { return WithName(value, control_.values); }

  std::string Week() const {
    const SceneWords words(context_.texts, control_.tables.dayNames, [this](float value) {
      return Named(ValueText(value, context_.decimalSeparator));
    });
    const DayNumber monday = context_.today - static_cast<DayNumber>(WeekdayOf(context_.today));
    const Moment from = StartOf(monday);
    const Moment to = StartOf(monday + kDaysOfWeek);
    Scene scene = ForecastScene(forecast_, schedule_, from, to, std::nullopt, words);
    scene.title =
        Message(Text(text::kReportWeek), {words.Day(monday), words.Day(monday + kDaysOfWeek - 1)});
    HtmlTable table(scene.title, {Text(text::kReportFrom), Text(text::kReportTo),
                                  Text(text::kReportValue), Text(text::kReportWhy)});
    for (const Stretch& stretch : forecast_.Timeline(from, to)) {
      table.Add({words.When(stretch.from), words.When(stretch.to),
                 words.Value(stretch.applied.value),
                 words.Source(stretch.applied.source, schedule_)});
    }
    const std::string rule = RuleWords(control_.tables.rule, context_.texts);
    const std::string ids = "c" + std::to_string(number_) + "-";
    return Inside(SvgOf(scene, LightPalette(), ids)) +
           (rule.empty() ? rule : HtmlElement("p", rule)) + table.Text(None());
  }

  std::string Weekdays() const {
    HtmlTable table(Text(text::kTitleWeekdays),
                    {Text(text::kReportDay), Text(kStartTime), Text(kStartTime + 1),
                     Text(kStartTime + 2), Text(kStartTime + 3)});
    for (std::size_t day = 0; day < kWeekdayDays; ++day) {
      for (const WeekdayRow& row : control_.tables.weekdays.table.days.at(day)) {
        if (!row.Used()) continue;
        table.Add(
            {DayTypeCaption(static_cast<int>(day) + 1, context_.texts, control_.tables.dayNames),
             TimeText(row.start), TimeText(row.stop),
             Named(ValueOnText(row, context_.decimalSeparator)),
             Named(ValueOffText(row, context_.decimalSeparator))});
      }
    }
    return table.Text(None());
  }

  std::string Exceptions() const {
    HtmlTable table(Text(text::kTitleExceptions), {Text(text::kReportFrom), Text(kStartTime + 2),
                                                   Text(text::kReportTo), Text(kStartTime + 3)});
    for (const OvcRow& row : control_.tables.exceptions.table.rows) {
      if (!row.used) continue;
      const ExceptionTexts texts = TextsOf(row, context_.decimalSeparator);
      const auto when = [&texts](ExceptionBox date, ExceptionBox time) {
        return texts[date].empty() ? texts[time] : texts[date] + " " + texts[time];
      };
      table.Add(
          {when(ExceptionBox::DateOn, ExceptionBox::Start), Named(texts[ExceptionBox::ValueOn]),
           when(ExceptionBox::DateOff, ExceptionBox::Stop), Named(texts[ExceptionBox::ValueOff])});
    }
    return table.Text(None());
  }

  // The names of a date's holidays, public or not.
  std::string HolidayOn(const CalendarDate& date) const {
    std::string names;
    for (const Holiday& holiday : SwedishHolidays(date.year)) {
      if (holiday.date == date)
        names += (names.empty() ? "" : ", ") + Windows1252FromUtf8(std::string(holiday.name));
    }
    return names;
  }

  std::string Year() const {
    const std::string title = Text(text::kTitleCalendar) + " " + std::to_string(context_.year);
    HtmlTable table(title,
                    {Text(text::kReportDate), Text(text::kReportType), Text(text::kReportHoliday)});
    for (const DatedType& entry : forecast_.Types().Dated()) {
      const DateParts parts = DateOf(StartOf(entry.day));
      if (parts.year != context_.year) continue;
      const CalendarDate date{parts.year, parts.month - 1, parts.day};
      table.Add({DateName(date, static_cast<int>(WeekdayOf(entry.day)), context_.texts),
                 SpokenDayType(static_cast<int>(entry.type) + 1, context_.texts,
                               control_.tables.dayNames),
                 HolidayOn(date)});
    }
    return YearPicture(context_.year, forecast_.Types(), title,
                       {context_.texts, control_.tables.dayNames}) +
           table.Text(None());
  }

  // Nothing that was read may be missing without a word.
  std::string Unread() const {
    HtmlTable table(Text(text::kReportUnread), {Text(text::kReportLine)});
    for (const auto* const lines :
         {&control_.tables.weekdays.unread, &control_.tables.calendar.unread,
          &control_.tables.exceptions.unread}) {
      for (const std::string& line : *lines) table.Add({line});
    }
    return table.IsEmpty() ? std::string() : table.Text(None());
  }

  std::string Findings() const {
    HtmlTable table(Text(text::kReportFindings),
                    {Text(text::kReportSeverity), Text(text::kReportPlace), Text(text::kReportText),
                     Text(text::kReportCode)});
    for (const Finding& finding : control_.findings) {
      const FindingInfo& info = InfoOf(finding.kind);
      table.Add({Text(SeverityText(info.severity)), finding.place,
                 finding.Text(context_.texts, control_.tables.dayNames), std::string(info.code)});
    }
    const std::string missing = control_.tables.known.NotJudged(context_.texts);
    return table.Text(None()) + (missing.empty() ? missing : HtmlElement("p", missing));
  }

  const ReportedControl& control_;
  const ReportContext& context_;
  std::size_t number_;
  const Schedule& schedule_;
  Forecast forecast_;
};

}  // namespace

std::string ReportOf(std::span<const ReportedControl> controls, const ReportContext& context) {
  const std::string title =
      Message(context.texts.Text(text::kReportTitle), {DateText(StartOf(context.today))});
  std::string html =
      "<!DOCTYPE html>\n<html lang=\"" + MarkupText(context.texts.Text(text::kReportLanguage)) +
      "\">\n<head>\n<meta charset=\"utf-8\">\n" + HtmlElement("title", title) + "<style>\n" +
      std::string(kStyle) + "</style>\n</head>\n<body>\n" + HtmlElement("h1", title);
  std::size_t number = 0;
  for (const ReportedControl& control : controls)
    html += Section(control, context, ++number).Html();
  return html + "</body>\n</html>\n";
}

}  // namespace zek
