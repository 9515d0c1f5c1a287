#include <algorithm>
#include <initializer_list>
#include <map>
#include <utility>

#include "commands/Commands.h"
#include "commands/ControlSchedule.h"
#include "forecast/Forecast.h"
#include "forecast/MomentText.h"
#include "formats/CalendarTable.h"
#include "formats/CatalogueFields.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "picture/ForecastScene.h"
#include "picture/Svg.h"
#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

// What a command needs of its operands before it reads anything.
struct Question {
  std::size_t node = 0;
  Rule rule;
  std::vector<Moment> moments;
};

// A line of --batch.
struct BatchLine {
  Moment moment = 0;
  Rule rule;
};

std::optional<Moment> MomentIn(std::string_view text) {
  const std::optional<Moment> moment = ParseMoment(text);
  if (!moment) return std::nullopt;
  return IsKnownYear(DateOf(*moment).year) ? moment : std::nullopt;
}

std::optional<BatchLine> ParseBatchLine(std::string_view line, const Rule& rule) {
  const std::size_t tab = std::min(line.find('\t'), line.size());
  const std::optional<Moment> moment = MomentIn(line.substr(0, tab));
  if (!moment) return std::nullopt;
  BatchLine parsed{*moment, rule};
  if (tab < line.size() && !parsed.rule.Set(line.substr(tab + 1))) return std::nullopt;
  return parsed;
}

// Nothing, after a message, if an operand or a switch is wrong.
std::optional<Question> QuestionOf(Console& console, const Arguments& arguments) {
  const auto node = ControlOperand(console, arguments.operands[0]);
  if (!node) return std::nullopt;
  Question question{*node, {}, {}};
  for (const std::string& rule : arguments.rules) {
    if (question.rule.Set(rule)) continue;
    Refuse(console, "unknown switch " + rule);
    return std::nullopt;
  }
  for (std::size_t at = 1; at < arguments.operands.size(); ++at) {
    const std::optional<Moment> moment = MomentIn(arguments.operands[at]);
    if (!moment) {
      Refuse(console, arguments.operands[at] + " is no minute from 1990 to 2099, such as " +
                          "2026-12-07T06:30");
      return std::nullopt;
    }
    question.moments.push_back(*moment);
  }
  return question;
}

// The schedule to ask, and how complete it is.
struct Reply {
  Schedule schedule;
  SpecialDayNames dayNames;
  ExitStatus status = kDone;
};

// Reads the schedule and says that the rule is assumed; nothing after a failed fetch.
std::optional<Reply> ReadFor(Console& console, const Question& question) {
  console.hasInput();
  ControlReader reader = ReaderFor(console);
  const std::optional<ControlTables> tables = reader.Read(question.node);
  if (!tables) return std::nullopt;
  console.err << Utf8FromWindows1252(console.proc.Text(text::kRuleAssumed)) << '\n' << std::flush;
  return Reply{tables->schedule, tables->dayNames, StatusOf(reader)};
}

// Prints records: their fields are separated by tabs.
class Records {
 public:
  explicit Records(Console& console)
      : out_(console.out), separator_(console.proc.settings.DecimalSeparator) {}

  void Print(std::initializer_list<std::string> fields) {
    const char* before = "";
    for (const std::string& field : fields) out_ << std::exchange(before, "\t") << field;
    out_ << '\n';
  }
  std::string Value(MaybeValue value) const { return ValueText(value, separator_); }

 private:
  std::ostream& out_;
  char separator_;
};

void PrintExplanation(Records& records, const Forecast& forecast, Moment moment, const Rule& rule) {
  const Applied applied = forecast.At(moment);
  records.Print({"value", records.Value(applied.value)});
  const std::optional<Moment> since = forecast.LastEvent(moment);
  records.Print({"since", since ? MomentText(*since) : "-"});
  if (const std::optional<Moment> until = forecast.NextChange(moment)) {
    records.Print({"until", MomentText(*until), records.Value(forecast.At(*until).value)});
  } else {
    records.Print({"until", "never"});
  }
  records.Print({"source", applied.source.Text()});
  const DayNumber day = DayOf(moment);
  records.Print({"day", std::string(kDayKeys.at(forecast.Types().Of(day)))});
  if (const DatedType* const entry = forecast.Types().EntryOf(day)) {
    records.Print({"sdc", std::to_string(entry->line)});
  } else {
    records.Print({"weekday"});
  }
  for (const Applied& beaten : forecast.Beaten(moment)) {
    records.Print({"beaten", beaten.source.Text(), records.Value(beaten.value)});
  }
  records.Print({"rule", rule.Text()});
}

// Prints the variants whose value at a moment is the observed one, as far as its digits are
// printed.
void PrintAgreeing(Records& records, const Schedule& schedule, Moment moment, MaybeValue observed) {
  for (const Rule& rule : Rule::Variants()) {
    const MaybeValue value = Forecast(schedule, rule).At(moment).value;
    if (value == observed || records.Value(value) == records.Value(observed))
      records.Print({"agrees", rule.Text()});
  }
}

ExitStatus ExplainBatch(Console& console, const Question& question, const std::string& file) {
  const std::optional<std::string> text = ReadFileOperand(console, file);
  if (!text) return kWrongUsage;
  std::vector<BatchLine> lines;
  for (std::string_view rest = *text; !rest.empty();) {
    const std::string_view line = TakeLine(rest);
    const std::optional<BatchLine> parsed = ParseBatchLine(line, question.rule);
    if (!parsed) {
      return Refuse(console, "line " + std::to_string(lines.size() + 1) + " of " + file +
                                 " is no minute with switches");
    }
    lines.push_back(*parsed);
  }
  const auto read = ReadFor(console, question);
  if (!read) return kFailed;
  Records records(console);
  const Schedule& schedule = read->schedule;
  std::map<std::string, Forecast> forecasts;  // by rule
  for (const BatchLine& line : lines) {
    const std::string rule = line.rule.Text();
    auto found = forecasts.find(rule);
    if (found == forecasts.end()) {
      found = forecasts.emplace(rule, Forecast(schedule, line.rule)).first;
    }
    const Applied applied = found->second.At(line.moment);
    records.Print({records.Value(applied.value), applied.source.Text()});
  }
  return read->status;
}

Moment Now(const Console& console) { return MomentOf(console.proc.now()); }

// Writes the picture of a timeline; false, after a message, if that failed.
bool WritePicture(Console& console, const Arguments& arguments, const Reply& read,
                  const Question& question) {
  const Schedule& schedule = read.schedule;
  const ZV_Proc& proc = console.proc;
  const SceneWords words(proc.texts, read.dayNames, [&](float value) {
    return ValueText(value, proc.settings.DecimalSeparator);
  });
  Scene scene = ForecastScene(Forecast(schedule, question.rule), schedule, question.moments[0],
                              question.moments[1], Now(console), words);
  scene.title =
      Message(proc.Text(text::kAppliesTitle), {NodeName(proc.tree, proc.topics, question.node)});
  if (question.rule != Rule{}) scene.title += " (" + question.rule.Text() + ")";
  const auto error = proc.files.Write(arguments.svg, SvgOf(scene, LightPalette()));
  if (error) console.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *error));
  return !error;
}

}  // namespace

ExitStatus PrintTimeline(Console& console, const Arguments& arguments) {
  const auto question = QuestionOf(console, arguments);
  if (!question) return kWrongUsage;
  const Moment from = question->moments[0];
  const Moment to = question->moments[1];
  if (from >= to) return Refuse(console, "FROM must be before TO");
  const bool drawn = !arguments.svg.empty();
  if (drawn && to - from > Moment{kLongestScene} * kMinutesOfDay) {
    return Refuse(console, "--svg draws " + std::to_string(kLongestScene) + " days at most");
  }
  const auto read = ReadFor(console, *question);
  if (!read) return kFailed;
  Records records(console);
  for (const Stretch& stretch : Forecast(read->schedule, question->rule).Timeline(from, to)) {
    records.Print({MomentText(stretch.from), MomentText(stretch.to),
                   records.Value(stretch.applied.value), stretch.applied.source.Text()});
  }
  if (drawn && !WritePicture(console, arguments, *read, *question)) return kFailed;
  return read->status;
}

ExitStatus Explain(Console& console, const Arguments& arguments) {
  const auto question = QuestionOf(console, arguments);
  if (!question) return kWrongUsage;
  const bool batch = !arguments.batch.empty();
  if (question->moments.empty() && !batch) return Refuse(console, "explain: WHEN or --batch FILE");
  if (!question->moments.empty() && batch) {
    console.err << "zekview-cli: WHEN is not used with --batch\n";
  }
  if (batch && !arguments.observed.empty())
    return Refuse(console, "explain: --observed needs WHEN, not --batch");
  MaybeValue observed;
  if (!arguments.observed.empty() && arguments.observed != "-") {
    observed = ValueIn(arguments.observed);
    if (!observed) return Refuse(console, arguments.observed + " is no value");
  }
  if (batch) return ExplainBatch(console, *question, arguments.batch);
  const auto read = ReadFor(console, *question);
  if (!read) return kFailed;
  Records records(console);
  const Schedule& schedule = read->schedule;
  const Moment moment = question->moments.front();
  PrintExplanation(records, Forecast(schedule, question->rule), moment, question->rule);
  if (!arguments.observed.empty()) PrintAgreeing(records, schedule, moment, observed);
  return read->status;
}

ExitStatus PrintNext(Console& console, const Arguments& arguments) {
  const auto question = QuestionOf(console, arguments);
  if (!question) return kWrongUsage;
  const auto read = ReadFor(console, *question);
  if (!read) return kFailed;
  Records records(console);
  const Forecast forecast(read->schedule, question->rule);
  const auto print = [&](const std::string& what, std::optional<Moment> next) {
    if (!next) return records.Print({what, "never"});
    const Applied applied = forecast.At(*next);
    records.Print({what, MomentText(*next), records.Value(applied.value), applied.source.Text()});
  };
  print("event", forecast.NextEvent(question->moments.front()));
  print("change", forecast.NextChange(question->moments.front()));
  return read->status;
}

}  // namespace zek::cli
