#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <iostream>
#include <string>
#include <vector>

#include "catalogue/LocalFiles.h"
#include "comm/ReplyReader.h"
#include "comm/SocketText.h"
#include "comm/Transfer.h"
#include "editors/PickList.h"
#include "formats/CalendarText.h"
#include "formats/CatalogueLimits.h"
#include "formats/CatalogueLine.h"
#include "formats/ExceptionCells.h"
#include "formats/ExceptionText.h"
#include "formats/LineNumbers.h"
#include "formats/WeekdayCells.h"
#include "formats/WeekdayText.h"
#include "lang/TextNumbers.h"
#include "plant/PlantCatalogueText.h"
#include "plant/PlantConversation.h"
#include "plant/PlantLine.h"
#include "plant/PlantOptions.h"
#include "support/TemporaryFolder.h"
#include "support/TestSession.h"
#include "system/DiskFiles.h"
#include "text/Numbers.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;
using test::TestSession;
constexpr Generation kZek1 = Generation::Zek1;
constexpr Generation kZek2 = Generation::Zek2;

// A limit and what comes of one below it, of it, and of one above it.
struct Limit {
  std::string what;
  std::int64_t limit;
  std::function<std::string(std::int64_t)> outcome;
  std::array<std::string, 3> expected;
};

std::string Str(std::int64_t number) { return std::to_string(number); }
std::string Copies(std::int64_t count, std::string_view text) {
  std::string copies;
  for (; count > 0; --count) copies += text;
  return copies;
}
// "Kn=v" lines, one for each n below `count`.
std::string Entries(std::int64_t count, const std::string& value) {
  std::string entries;
  for (std::int64_t n = 0; n < count; ++n) entries += "K" + Str(n) + "=" + value + "\r\n";
  return entries;
}
// The number of lines, or "text" and its number.
std::string Of(const BuiltLines& built) {
  if (const auto* error = std::get_if<BuildError>(&built)) return "text " + Str(error->text);
  return Str(static_cast<std::int64_t>(std::get<Lines>(built).size()));
}
std::string NumberOr(std::optional<std::int16_t> number) {
  return number ? Str(*number) : "refused";
}

// --- Lines of a catalogue ---

std::string Fetched(std::int64_t count) {
  Transfer transfer;
  Countdowns countdowns;
  transfer.Collect(TransferKind::ReadWdc);
  for (; count > 0; --count) transfer.TakeReplyLine("1!T!", countdowns, 1);
  return Str(transfer.CatalogueLineCount()) + "+" + Str(transfer.LinesDropped);
}
std::string CopyOf(std::int64_t count) {
  const LocalCopy copy = ReadLocalCopy(".DFV = 1\r\n" + Copies(count, "1!T!\r\n"));
  return Str(static_cast<std::int64_t>(copy.lines.size())) + (copy.tooLong ? " too long" : "");
}
WeekdayTable TableOf(std::int64_t rows, float value = 1) {
  WeekdayTable table;
  for (std::int64_t row = 0; row < rows; ++row) {
    const auto place = static_cast<std::size_t>(row);
    table.days.at(place % kWeekdayDays).at(place / kWeekdayDays) = {static_cast<std::int16_t>(row),
                                                                    kNoTime, value, kNoValue};
  }
  return table;
}
std::string WeekdayLines(std::int64_t count) {
  return Of(BuildWeekday(TableOf(count), "T", {}, BuildStart::Afresh, '.'));
}
std::string CalendarLines(std::int64_t count) {
  CalendarTable table(CalendarYears::kFirst);
  CalendarDate date{2026, 0, 1};
  for (; count > 0; --count, date = NextDay(NextDay(date))) table.Add(date, date, 1);
  return Of(BuildCalendar(table, "T", kZek1));
}
ExceptionTable OneException(float value = 1) {
  ExceptionTable table;
  table.rows[0] = {true, DateMoment(2026, 12, 24), 0, value, kNoValue};
  return table;
}
std::string ExceptionLines(std::int64_t count) {
  const Lines others(static_cast<std::size_t>(count - 1), "1!U!");
  return Of(BuildExceptions(OneException(), {"T", kZek1}, others, {1, 100}, '.'));
}

// --- Rows and entries ---

std::string RowsOfDay(std::int64_t count) {
  const WeekdayReading reading =
      ReadWeekday(Lines(static_cast<std::size_t>(count), "1!T!MO!07:00!1!."), "T");
  return Str(static_cast<std::int64_t>(reading.table.UsedRows(0))) + "+" +
         Str(static_cast<std::int64_t>(reading.linesLost));
}
std::string ExceptionRows(std::int64_t count) {
  const Lines lines(static_cast<std::size_t>(count), "1!T!24-DEC-26,08:00!1!.");
  const ExceptionReading reading = ReadExceptions(lines, {"T", kZek1});
  const auto& rows = reading.table.rows;
  return Str(std::count_if(rows.begin(), rows.end(), [](auto& row) { return row.used; })) + "+" +
         Str(static_cast<std::int64_t>(reading.linesLost));
}
std::string CalendarEntries(std::int64_t count) {
  CalendarTable table(CalendarYears::kFirst);
  CalendarDate last{2026, 0, 1};
  for (std::int64_t day = 1; day < count; ++day) last = NextDay(last);
  const bool given = table.Give({2026, 0, 1}, last, 1);
  const bool added = table.Add({2026, 0, 1}, last, 1);
  return (given ? "given " : "refused ") + Str(static_cast<std::int64_t>(table.Used().size())) +
         (added ? "" : " full");
}

// --- Settings ---

// What start-up says nothing about.
constexpr std::string_view kGeneral = "[General]\r\nDisconnectTime=60\r\nGetTSCTimeout=5\r\n";

void SetFile(TestSession& session, const std::string& sections) {
  session.files.files["/ini/ZEKView.INI"] = std::string(kGeneral) + sections;
  session.prompts.shown.clear();
}

std::string TopicsOf(std::int64_t count) {
  TestSession session;
  SetFile(session, "[Topics]\r\n" + Entries(count, "YES,1,,D"));
  session.Load("");
  return Str(session.proc.topics.TopicCount()) + (session.prompts.shown.empty() ? "" : " told");
}
// The outcome of `take` on a section of so many characters, the end of each entry counted.
std::string CutAt(std::int64_t length, const std::string& section,
                  const std::function<std::size_t(TestSession&)>& messages) {
  TestSession session;
  const auto value = static_cast<std::size_t>(length) - std::string_view("KEY=").size() - 1;
  SetFile(session, "[Topics]\r\nONE=YES,1,,D\r\n[" + section +
                       "]\r\nKEY=" + std::string(value, '1') + "\r\n");
  return messages(session) == 0 ? "whole" : "told";
}
std::size_t MessagesOfStart(TestSession& session) {
  session.Load("");
  return session.prompts.shown.size();
}
std::string ObjectSection(std::int64_t length) { return CutAt(length, "ONE", MessagesOfStart); }
std::string PickListSection(std::int64_t length) {
  return CutAt(length, "TXI_1", [](TestSession& session) {
    return ReadPickList(session.profile, 1, '.').cutLength;
  });
}
std::string TopicSection(std::int64_t length) {
  TestSession session;
  constexpr std::string_view kFirst = "ONE=YES,1,,";
  const auto rest = static_cast<std::size_t>(length) - kFirst.size() - 1;
  SetFile(session, "[Topics]\r\n" + std::string(kFirst) + std::string(rest, 'D'));
  return MessagesOfStart(session) == 0 ? "whole" : "told";
}
std::string SettingOf(std::int64_t length) {
  TestSession session;
  session.profile.WriteIni("General", "Language",
                           std::string(static_cast<std::size_t>(length), 'x'));
  return Str(static_cast<std::int64_t>(session.profile.ReadIni("General", "Language", "").size()));
}
std::string NumberSetting(std::int64_t value) {
  TestSession session;
  session.profile.WriteIni("S", "N", Str(value));
  return NumberOr(session.proc.Numbers().Read("S", "N", "0"));
}
std::string SecondsSetting(std::int64_t value) {
  TestSession session;
  session.profile.WriteIni("S", "N", Str(value));
  return NumberOr(session.proc.Numbers().ReadSeconds("S", "N", "0"));
}
// What start-up makes of a number in section "General".
template <class Member>
std::function<std::string(std::int64_t)> AtStart(const std::string& key, Member member) {
  return [=](std::int64_t value) {
    TestSession session;
    session.profile.WriteIni("General", key, Str(value));
    session.prompts.shown.clear();
    const bool loaded = LoadSettings(session.proc.settings, "", session.profile, session.proc.texts,
                                     session.prompts);
    if (!loaded) return std::string("ends");
    return Str(session.proc.settings.*member) + (session.prompts.shown.empty() ? "" : " told");
  };
}

std::string LanguageText(std::int64_t number) {
  LanguageTexts texts;
  texts.Read(Str(number) + "=x");
  return texts.Text(static_cast<std::int32_t>(number)) == "x" ? "read" : "no text";
}
std::string FileOf(std::int64_t size) {
  const test::TemporaryFolder folder;
  std::ofstream(folder.Path() / "x").close();
  std::filesystem::resize_file(folder.Path() / "x", static_cast<std::uintmax_t>(size));
  const FileContent content = DiskFiles().Read(folder.Name() + "x");
  return content.error ? "refused" : Str(static_cast<std::int64_t>(content.bytes.size()));
}

// --- What a controller sends ---

struct Collected final : ReplyEvents {
  std::string line;
  bool dropped = false;
  void OnLinkUp() override {}
  void OnReplyLine(std::string_view text) override { line = text; }
  void OnTextDropped() override { dropped = true; }
};
// A line that came in two texts.
std::string ReplyLineOf(std::int64_t length) {
  ReplyReader reader;
  Collected collected;
  reader.HandleReplyText("0001>" + std::string(static_cast<std::size_t>(length), 'x'), collected);
  reader.HandleReplyText("0001>\n", collected);
  return Str(static_cast<std::int64_t>(collected.line.size())) + (collected.dropped ? " told" : "");
}
std::string PieceOf(std::int64_t length) {
  SocketText socket;
  socket.Reset(false);
  socket.Take(std::string(static_cast<std::size_t>(length), 'x'), [](std::string_view) {});
  return socket.TakeDropped() ? "told" : "kept";
}
std::string SequenceOf(std::int64_t texts) {
  SocketText socket;
  std::string last;
  socket.Reset(true);
  for (; texts > 0; --texts) socket.Take("x", [&](std::string_view text) { last = text; });
  return last;
}
std::string LogOf(std::int64_t count) {
  ReplyLog log;
  for (std::int64_t n = 1; n <= count; ++n) log.Add(Str(n));
  return log.Lines().front() + ".." + log.Lines().back();
}
std::string DotsOf(std::int64_t count) {
  StatusPanels panels;
  for (; count > 0; --count) panels.Dot();
  return Str(static_cast<std::int64_t>(panels.Transfer.size()));
}

// --- Numbers, names, values and years of lines ---

std::string WeekdayFrom(const std::string& name, std::int64_t number) {
  const Lines old = {Str(number) + " !" + name + "!MO!07:00!1!."};
  return Of(BuildWeekday(TableOf(1), name, old, BuildStart::Afresh, '.'));
}
std::string ExceptionFrom(std::int64_t number) {
  return Of(BuildExceptions(OneException(), {"T", kZek2}, {},
                            {static_cast<std::int16_t>(number), 0}, '.'));
}
std::string PltCalendarLines(std::int64_t count) {
  CalendarTable table(CalendarYears::kFirst);
  CalendarDate date{2026, 0, 1};
  for (; count > 0; --count, date = NextDay(NextDay(date))) table.Add(date, date, 1);
  return Of(BuildCalendar(table, "PLT99", kZek1));
}
// A value that takes so many characters: "-111.1", "1.234E-10".
float ValueOf(std::int64_t width) {
  constexpr std::size_t kDecimals = 7;  // so many characters without an exponent
  const auto length = static_cast<std::size_t>(width);
  const std::string text = length <= kDecimals ? "-" + std::string(length - 3, '1') + ".1"
                                               : "1." + std::string(length - 6, '1') + "E-10";
  return std::stof(text);
}
std::string WeekdayValue(const std::string& name, std::int64_t width) {
  const WeekdayTable table = TableOf(1, ValueOf(width));
  return Of(BuildWeekday(table, name, {}, BuildStart::Afresh, '.'));
}
std::string ExceptionValue(std::int64_t width) {
  return Of(BuildExceptions(OneException(ValueOf(width)), {"T", kZek2}, {}, {1, 0}, '.'));
}
std::string ExceptionYear(Generation generation, std::int64_t year) {
  ExceptionTable table = OneException();
  table.rows[0].start = DateMoment(static_cast<double>(year), 6, 15);
  return Of(BuildExceptions(table, {"T", generation}, {}, {1, 100}, '.'));
}
std::string CalendarYear(std::int64_t year) {
  const auto reading = ReadCalendar(Lines{"1!15-JUN-" + Str(year) + "!SD1"}, {kZek2, 20, 2030},
                                    CalendarYears::kFirst);
  return Str(static_cast<std::int64_t>(reading.table.Used().size()));
}
// Whether a name of so many characters is told from the same name with one more.
std::string NameOf(std::int64_t length) {
  const std::string name(static_cast<std::size_t>(length), 'N');
  const WeekdayReading reading =
      ReadWeekday(Lines{"1!" + std::string(LineName(name)) + "!MO!07:00!1!."}, name + "N");
  return reading.table.UsedRows(0) == 0 ? "told apart" : "the same";
}
std::string SpecialDay(std::int64_t day) {
  const auto reading = ReadWeekday(Lines{"1!T!SD" + Str(day) + "!07:00!1!."}, "T");
  return reading.refused ? "refused" : "read";
}

// --- What is typed ---

std::string TypedMinutes(std::int64_t minutes) {
  return NumberOr(TypedTime(Str(minutes / 60) + ":" + Str(minutes % 60)));
}
std::string TypedYear(std::int64_t year) {
  const std::string text = Str(year);
  return TypedExceptionDate(std::string(4 - std::min<std::size_t>(text.size(), 4), '0') + text +
                            "-06-15")
             ? "taken"
             : "refused";
}

// --- The simulated plant ---

std::string PlantLineOf(std::int64_t length) {
  return sim::IsPlainLine(std::string(static_cast<std::size_t>(length), 'x')) ? "taken" : "refused";
}
std::string PlantLines(std::int64_t count) {
  std::string text;
  for (std::int64_t n = 1; n <= count; ++n) text += Str(n) + " x\r\n";
  sim::PlantCatalogue catalogue;
  std::optional<std::string> value;
  return sim::ReadPlantCatalogue(text, catalogue, value).empty() ? "taken" : "refused";
}
std::string PlantNumber(std::int64_t number) { return Str(sim::LineNumber(Str(number) + " x")); }
std::string PlantCommand(std::int64_t length) {
  sim::Plant plant;
  plant.outstations.resize(1);
  sim::PlantConversation conversation(plant);
  conversation.Greeting();
  const std::string answer =
      conversation.Receive(std::string(static_cast<std::size_t>(length), ' ') + "\r");
  return answer.find("OK") == std::string::npos ? "refused" : "taken";
}
std::string PortOf(std::int64_t port) {
  return sim::ReadPlantOptions({"--port", Str(port)}).error.empty() ? "taken" : "refused";
}
std::string DusOf(std::int64_t dus) {
  sim::Outstation outstation;
  const std::string error = sim::ReadOutstationText("Dus = " + Str(dus), outstation);
  return error.empty() ? Str(outstation.dus) : "refused";
}

std::string ExpectedText(std::int32_t number) { return "text " + Str(number); }

std::vector<Limit> LineLimits() {
  const std::string full = ExpectedText(text::kCatalogueFull);
  constexpr std::int64_t lines = kMaxCatalogueLines;
  return {
      {"lines of a listing", lines, Fetched, {"200+0", "201+0", "201+1"}},
      {"lines of a local copy", lines, CopyOf, {"200", "201", "201 too long"}},
      {"lines of a weekday catalogue", lines, WeekdayLines, {"200", "201", full}},
      {"lines of a calendar", lines, CalendarLines, {"200", "201", full}},
      {"lines of an exception catalogue", lines, ExceptionLines, {"200", "201", full}},
  };
}

std::vector<Limit> RowLimits() {
  return {
      {"rows of a day", kWeekdayRows, RowsOfDay, {"15+0", "16+0", "16+1"}},
      {"exceptions", kExceptionRows, ExceptionRows, {"7+0", "8+0", "8+1"}},
      {"dates of a calendar",
       kCalendarEntries,
       CalendarEntries,
       {"given 512 full", "given 512 full", "refused 512 full"}},
  };
}

std::vector<Limit> SettingLimits() {
  return {
      {"topics", kMaxTopics, TopicsOf, {"299", "300", "300 told"}},
      // A section that fills its buffer less two ends counts as cut.
      {"section of the topics", kTopicsBuffer - 2, TopicSection, {"whole", "told", "told"}},
      {"section of an object", kObjectBuffer - 2, ObjectSection, {"whole", "told", "told"}},
      {"section of a pick-list", 2046, PickListSection, {"whole", "told", "told"}},
      {"numbers of a language's texts", 2147483647, LanguageText, {"read", "read", "no text"}},
      {"bytes of a file", kLargestFile, FileOf, {"67108863", "67108864", "refused"}},
      {"characters of a setting", 127, SettingOf, {"126", "127", "127"}},
      {"largest number of a setting", 32767, NumberSetting, {"32766", "32767", "refused"}},
      {"least number of a setting", -32768, NumberSetting, {"refused", "-32768", "-32767"}},
      {"seconds", kLongestWaitSeconds, SecondsSetting, {"6552", "6553", "refused"}},
      {"DisconnectTime, least",
       60,
       AtStart("DisconnectTime", &Settings::DisconnectTicks),
       {"300 told", "300", "305"}},
      {"DisconnectTime, largest",
       kLongestWaitSeconds,
       AtStart("DisconnectTime", &Settings::DisconnectTicks),
       {"32760", "32765", "ends"}},
      {"GetTSCTimeout",
       5,
       AtStart("GetTSCTimeout", &Settings::GetTSCTimeoutTicks),
       {"25 told", "25", "30"}},
      {"SDCLastTwoDigitYear, least",
       20,
       AtStart("SDCLastTwoDigitYear", &Settings::SDCLastTwoDigitYear),
       {"20", "20", "21"}},
      {"SDCLastTwoDigitYear, largest",
       93,
       AtStart("SDCLastTwoDigitYear", &Settings::SDCLastTwoDigitYear),
       {"92", "93", "ends"}},
      {"SDCLastYear, least",
       2030,
       AtStart("SDCLastYear", &Settings::SDCLastYear),
       {"2030", "2030", "2031"}},
      {"SDCLastYear, largest",
       9999,
       AtStart("SDCLastYear", &Settings::SDCLastYear),
       {"9998", "9999", "ends"}},
  };
}

std::vector<Limit> ReplyLimits() {
  return {
      {"characters of a reply line", kLongestReply, ReplyLineOf, {"65535", "65536", "65536 told"}},
      {"characters of a piece", kLongestReply, PieceOf, {"kept", "kept", "told"}},
      {"sequence numbers", 10000, SequenceOf, {"9998>x", "9999>x", "0000>x"}},
      {"lines of the log", ReplyLog::kLines, LogOf, {"1..249", "1..250", "2..251"}},
      {"dots of the progress", 250, DotsOf, {"249", "250", "250"}},
  };
}

std::vector<Limit> FieldLimits() {
  const std::string numberTooLarge = ExpectedText(text::kLineNumberTooLarge);
  const std::string valueTooLong = ExpectedText(text::kValueTooLong);
  const std::string yearUnfit = ExpectedText(text::kYearUnfit);
  return {
      {"line numbers",
       kLargestLineNumber,
       [](auto n) { return WeekdayFrom("T", n); },
       {"1", "1", numberTooLarge}},
      {"line numbers of PLT99's calendar", 99, PltCalendarLines, {"98", "99", numberTooLarge}},
      {"PLT numbers",
       99,
       [](auto n) { return WeekdayFrom("PLT" + Str(n), 1); },
       {"1", "1", numberTooLarge}},
      {"least line number of an exception",
       1,
       ExceptionFrom,
       {ExpectedText(text::kLineNumberTooSmall), "1", "1"}},
      {"characters of a value",
       9,
       [](auto n) { return WeekdayValue("T", n); },
       {"1", "1", valueTooLong}},
      {"characters of a PLT value",
       6,
       [](auto n) { return WeekdayValue("PLT1", n); },
       {"1", "1", valueTooLong}},
      {"characters of a ZEK2 exception's value", 6, ExceptionValue, {"1", "1", valueTooLong}},
      {"first year of a ZEK1 exception",
       1990,
       [](auto n) { return ExceptionYear(kZek1, n); },
       {yearUnfit, "1", "1"}},
      {"last year of a ZEK1 exception",
       2089,
       [](auto n) { return ExceptionYear(kZek1, n); },
       {"1", "1", yearUnfit}},
      {"first year of a ZEK2 exception",
       1900,
       [](auto n) { return ExceptionYear(kZek2, n); },
       {yearUnfit, "1", "1"}},
      {"first year of a calendar", CalendarYears::kFirst, CalendarYear, {"0", "1", "1"}},
      {"last year of a calendar", 2030, CalendarYear, {"1", "1", "0"}},
      {"characters of a name", 12, NameOf, {"told apart", "the same", "the same"}},
      {"special days", 7, SpecialDay, {"read", "read", "refused"}},
  };
}

std::vector<Limit> TypedLimits() {
  return {
      {"the end of a typed day", kMinutesOfDay, TypedMinutes, {"1439", "1440", "1440"}},
      {"typed hours and minutes",
       2500,
       [](auto n) { return NumberOr(TypedTime(Str(n))); },
       {"1440", "refused", "refused"}},
      {"typed years of two digits", 20, TypedYear, {"taken", "taken", "refused"}},
      {"typed years of the last century", 90, TypedYear, {"refused", "taken", "taken"}},
      {"ticks",
       32767,
       [](auto n) { return Str(TicksOf(static_cast<double>(n) / kTicksPerSecond)); },
       {"32766", "32767", "32767"}},
      {"16 bits",
       32767,
       [](auto n) { return NumberOr(ToInt16(static_cast<double>(n))); },
       {"32766", "32767", "refused"}},
      {"digits of a value",
       9999999,
       [](auto n) { return FormatNumber(static_cast<double>(n), '.'); },
       {"9999998", "9999999", "1E+07"}},
  };
}

std::vector<Limit> PlantLimits() {
  return {
      {"characters of a plant's line",
       sim::kLongestLine,
       PlantLineOf,
       {"taken", "taken", "refused"}},
      {"lines of a plant's catalogue", sim::kMostLines, PlantLines, {"taken", "taken", "refused"}},
      {"line numbers of a plant", 99999, PlantNumber, {"99998", "99999", "0"}},
      {"characters of a plant's command",
       sim::PlantConversation::kLongestCommand,
       PlantCommand,
       {"taken", "taken", "refused"}},
      {"ports", 65535, PortOf, {"taken", "taken", "refused"}},
      {"DUS numbers", 32767, DusOf, {"32766", "32767", "refused"}},
      {"least DUS number", 1, DusOf, {"refused", "1", "2"}},
  };
}

// How many of the three outcomes are as expected.
std::size_t Held(const Limit& limit) {
  std::size_t held = 0;
  for (std::size_t place = 0; place < limit.expected.size(); ++place) {
    const std::int64_t number = limit.limit - 1 + static_cast<std::int64_t>(place);
    const std::string outcome = limit.outcome(number);
    EXPECT_EQ(outcome, limit.expected.at(place)) << limit.what << ": " << number;
    held += outcome == limit.expected.at(place) ? 1 : 0;
  }
  return held;
}

TEST(Limits, OneBelowAtAndOneAbove) {
  std::size_t held = 0;
  std::size_t cases = 0;
  for (const auto& table : {LineLimits(), RowLimits(), SettingLimits(), ReplyLimits(),
                            FieldLimits(), TypedLimits(), PlantLimits()}) {
    for (const Limit& limit : table) {
      held += Held(limit);
      cases += limit.expected.size();
    }
  }
  std::cout << "figure: limits: " << held << " of " << cases << std::endl;
}

}  // namespace
}  // namespace zek
