#include <algorithm>
#include <array>
#include <set>

#include "commands/Commands.h"
#include "commands/ControlSchedule.h"
#include "findings/Findings.h"
#include "forecast/MomentText.h"
#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

std::string JsonText(const std::string& text) {
  std::string json = "\"";
  for (const char c : text) {
    if (c == '"' || c == '\\') json += '\\';
    if (static_cast<unsigned char>(c) < ' ') {
      constexpr std::string_view digits = "0123456789abcdef";
      json += "\\u00";
      json += digits[static_cast<std::size_t>(c) / digits.size()];
      json += digits[static_cast<std::size_t>(c) % digits.size()];
    } else {
      json += c;
    }
  }
  return json + "\"";
}

// Prints findings as lines or as a JSON array, and knows whether one is more than information.
class FindingPrinter {
 public:
  FindingPrinter(Console& console, bool json) : console_(console), json_(json) {}

  void Print(const std::string& node, const std::vector<Finding>& findings,
             const SpecialDayNames& names) {
    for (const Finding& finding : findings) {
      const FindingInfo& info = InfoOf(finding.kind);
      serious_ = serious_ || info.severity != Severity::Information;
      std::string text = finding.Text(console_.proc.texts, names);
      ShowControls(text);
      const std::array<std::string, 5> fields = {
          std::string(info.code), std::string(1, static_cast<char>(info.severity)),
          Utf8FromWindows1252(node), finding.place, Utf8FromWindows1252(text)};
      json_ ? PrintObject(fields) : PrintLine(fields);
    }
  }
  void End() {
    if (json_) console_.out << (any_ ? "\n]\n" : "[]\n");
  }
  bool Serious() const { return serious_; }

 private:
  void PrintLine(const std::array<std::string, 5>& fields) {
    for (std::size_t at = 0; at < fields.size(); ++at)
      console_.out << (at == 0 ? "" : "\t") << fields.at(at);
    console_.out << '\n';
  }
  void PrintObject(const std::array<std::string, 5>& fields) {
    constexpr std::array names = {"code", "severity", "node", "place", "text"};
    console_.out << (any_ ? ",\n" : "[\n");
    any_ = true;
    for (std::size_t at = 0; at < fields.size(); ++at) {
      console_.out << (at == 0 ? "{" : ", ") << '"' << names.at(at)
                   << "\": " << JsonText(fields.at(at));
    }
    console_.out << '}';
  }

  Console& console_;
  bool json_;
  bool any_ = false;
  bool serious_ = false;
};

// Judges the controls of one controller after the other.
class PlantJudge {
 public:
  PlantJudge(Console& console, const FindingContext& context, bool json)
      : console_(console),
        context_(context),
        reader_(ReaderFor(console)),
        printer_(console, json) {}

  void Judge(const std::set<std::size_t>& nodes) {
    for (const std::size_t node : nodes) {
      const TreeNode& tree = console_.proc.tree[node];
      if (!controls_.empty() && tree.Object != object_) EndController();
      object_ = tree.Object;
      parent_ = *tree.Parent;
      JudgeControl(node);
    }
    EndController();
    printer_.End();
  }

  ExitStatus Status(bool exitCode) const {
    if (exitCode && printer_.Serious()) return kWouldChange;
    return failed_ ? kFailed : StatusOf(reader_);
  }

 private:
  void JudgeControl(std::size_t node) {
    std::optional<ControlTables> tables = reader_.Read(node);
    failed_ = failed_ || !tables;
    if (!tables) return;
    printer_.Print(NodeName(console_.proc.tree, console_.proc.topics, node),
                   FindingsOf(*tables, context_), tables->dayNames);
    controls_.push_back(*std::move(tables));
  }

  void EndController() {
    if (controls_.empty()) return;
    const ObjectTree& tree = console_.proc.tree;
    const auto all = static_cast<std::size_t>(std::count_if(
        tree.begin(), tree.end(), [this](const TreeNode& node) { return node.Parent == parent_; }));
    printer_.Print(NodeName(tree, console_.proc.topics, parent_),
                   SharedFindings(controls_, controls_.size() == all, context_),
                   controls_.front().dayNames);
    controls_.clear();
  }

  Console& console_;
  const FindingContext& context_;
  ControlReader reader_;
  FindingPrinter printer_;
  std::vector<ControlTables> controls_;  // of the controller
  std::int16_t object_ = 0;
  std::size_t parent_ = 0;
  bool failed_ = false;
};

}  // namespace

ExitStatus Lint(Console& console, const Arguments& arguments) {
  const auto controls = ControlOperands(console, arguments.operands);
  if (!controls) return kWrongUsage;
  if (controls->empty() && !arguments.operands.empty())
    return Refuse(console, "lint: there is no time control below these nodes");
  const std::optional<DayNumber> today = TodayFor(console, arguments);
  if (!today) return kWrongUsage;
  console.hasInput();
  const Settings& settings = console.proc.settings;
  const FindingContext context{*today, settings.SwedishHolidays, settings.DecimalSeparator};
  PlantJudge judge(console, context, arguments.json);
  judge.Judge(*controls);
  console.err << Utf8FromWindows1252(console.proc.Text(text::kRuleAssumed)) << '\n';
  return judge.Status(arguments.exitCode);
}

}  // namespace zek::cli
