#include "catalogue/SendQuestion.h"

#include <algorithm>
#include <array>
#include <span>

#include "lang/TextNumbers.h"
#include "text/Controls.h"
#include "text/Lines.h"

namespace zek {

namespace {

constexpr std::size_t kLongestLine = 200;
constexpr std::string_view kIndent = "  ";
constexpr std::string_view kLineEnd = "\r\n";

// A heading and the changes below it. Lines of other controls are listed apart from the control's
// own.
struct Section {
  ChangeKind kind;
  bool others;
  std::int32_t heading;
};

// What is overwritten or lost comes first, because nobody reads a long list to its end.
constexpr auto kChangeSections = std::to_array<Section>({
    {ChangeKind::Removed, true, text::kOverwrittenHeading},
    {ChangeKind::Dropped, false, text::kDroppedHeading},
    {ChangeKind::Dropped, true, text::kLeavingHeading},
    {ChangeKind::Removed, false, text::kRemovedHeading},
    {ChangeKind::Changed, false, text::kChangedHeading},
    {ChangeKind::Added, false, text::kAddedHeading},
});

constexpr auto kFaultSections = std::to_array<Section>({
    {ChangeKind::Changed, false, text::kDiffersHeading},
    {ChangeKind::Removed, false, text::kMissingHeading},
    {ChangeKind::Added, false, text::kLeftHeading},
});

bool IsOfOthers(const CatalogueChange& change) {
  return change.reason == DropReason::OtherControl || change.reason == DropReason::Overwritten;
}

std::int32_t ReasonText(DropReason reason) {
  switch (reason) {
    case DropReason::Starred:
      return text::kDropStarred;
    case DropReason::TooManyExceptions:
      return text::kDropTooMany;
    case DropReason::PltStopValue:
      return text::kDropPltStopValue;
    case DropReason::StopTime:
      return text::kDropStopTime;
    case DropReason::Unreadable:
      return text::kDropUnreadable;
    case DropReason::Overwritten:
      return text::kDropOverwritten;
    case DropReason::OtherControl:  // the heading says it
    case DropReason::None:
      break;
  }
  return 0;
}

// A controller's line can have any length and any characters.
std::string Readable(std::string_view line) {
  std::string readable = Shortened(line, kLongestLine);
  ShowControls(readable);
  return readable;
}

class Report {
 public:
  Report(const std::vector<CatalogueChange>& changes, const LanguageTexts& texts,
         std::int32_t beforeText, std::int32_t afterText)
      : changes_(changes), texts_(texts) {
    before_ = texts.Text(beforeText);
    after_ = texts.Text(afterText);
    const std::size_t width = std::max(before_.size(), after_.size());
    before_.resize(width, ' ');
    after_.resize(width, ' ');
  }

  void Add(const Section& section) {
    const auto belongs = [&section](const CatalogueChange& change) {
      return change.kind == section.kind && IsOfOthers(change) == section.others;
    };
    const auto count = std::count_if(changes_.begin(), changes_.end(), belongs);
    if (count == 0) return;
    AddHeading(section.heading, static_cast<std::size_t>(count));
    for (const CatalogueChange& change : changes_)
      if (belongs(change)) AddChange(change);
  }

  // Lists lines below a heading and returns true if there are any.
  bool Add(std::int32_t heading, const std::vector<std::string>& lines) {
    if (lines.empty()) return false;
    AddHeading(heading, lines.size());
    for (const std::string& line : lines) AddLine(std::string(kIndent) + Readable(line));
    return true;
  }

  ChangeTexts Take() { return std::move(report_); }

 private:
  void AddHeading(std::int32_t number, std::size_t count) {
    const std::string heading = texts_.Text(number);
    if (!report_.Summary.empty()) report_.Summary += ", ";
    report_.Summary.append(heading).append(": ").append(std::to_string(count));
    if (!report_.Details.empty()) report_.Details += kLineEnd;
    AddLine(heading + " (" + std::to_string(count) + ")");
  }

  void AddLine(std::string_view line) { report_.Details.append(line).append(kLineEnd); }

  void AddChange(const CatalogueChange& change) {
    const std::string indent(kIndent);
    if (change.kind == ChangeKind::Changed) {
      AddLine(indent + before_ + indent + Readable(change.before));
      AddLine(indent + after_ + indent + Readable(change.after));
      return;
    }
    std::string line =
        indent + Readable(change.kind == ChangeKind::Added ? change.after : change.before);
    const std::int32_t reason = ReasonText(change.reason);
    if (reason != 0) line.append(kIndent).append("(").append(texts_.Text(reason)).append(")");
    AddLine(line);
  }

  const std::vector<CatalogueChange>& changes_;
  const LanguageTexts& texts_;
  std::string before_;
  std::string after_;
  ChangeTexts report_;
};

ChangeTexts Told(Report report, std::span<const Section> sections) {
  for (const Section& section : sections) report.Add(section);
  return report.Take();
}

// Lines that stay, as far as it is known, are no news where the controller was seen to remove them.
std::int32_t LeftHeading(SeenToDo seen) {
  return seen == SeenToDo::ReplacesByNumber ? text::kStaysHeading : text::kMayStayHeading;
}

std::vector<CatalogueChange> ChangesOf(const SendFacts& facts, const CatalogueRules& rules) {
  std::vector<CatalogueChange> changes =
      ChangesBetween(facts.before, {facts.after.lines, facts.after.dfv}, rules);
  for (const std::string& lost : facts.after.notInLines)
    changes.push_back({ChangeKind::Dropped, lost, {}, DropReason::StopTime});
  return changes;
}

bool IsRisky(const CatalogueChange& change) {
  return change.kind == ChangeKind::Removed || change.kind == ChangeKind::Dropped;
}

std::string Against(const SendFacts& facts, const Messages& messages) {
  if (facts.before.from == LinesFrom::Nowhere) return messages.Text(text::kChangesUnknown);
  if (facts.since.empty()) return messages.Text(text::kChangesFetched);
  return messages.Text(text::kChangesSince, {facts.since});
}

}  // namespace

ChangeTexts TextsOfFaults(const std::vector<CatalogueChange>& faults, const LanguageTexts& texts) {
  return Told({faults, texts, text::kSentLine, text::kFetchedLine}, kFaultSections);
}

SendList ListChanges(const SendFacts& facts, const CatalogueRules& rules,
                     const LanguageTexts& texts) {
  const std::vector<CatalogueChange> changes = ChangesOf(facts, rules);
  Report report(changes, texts, text::kChangeBefore, text::kChangeAfter);
  bool risky = std::any_of(changes.begin(), changes.end(), IsRisky);
  risky |= report.Add(text::kConflictHeading, facts.conflicts);
  risky |= report.Add(text::kMissingOthersHeading, facts.missing);
  // A controller that was seen to remove such lines needs no warning.
  if (facts.seen <= SeenToDo::ReplacesByNumber) {
    risky |= report.Add(LeftHeading(facts.seen), facts.left);
  }
  report.Add(text::kNotesHeading, facts.after.notes);
  report.Add(text::kFindingsNew, facts.after.findings);
  for (const Section& section : kChangeSections) report.Add(section);
  SendList list{report.Take(), risky};
  if (list.texts.Details.empty()) list.texts.Summary = texts.Text(text::kChangesNone);
  return list;
}

bool AskSend(const std::string& question, const SendFacts& facts, const SendList& list,
             const Messages& messages) {
  std::string whole = question;
  if (facts.before.from != LinesFrom::Nowhere || !list.texts.Details.empty()) {
    whole += "\r\n\r\n" + Against(facts, messages) + "\r\n" + list.texts.Summary;
  }
  if (facts.valueUnknown) whole += "\r\n" + messages.Text(text::kValueWillBeNone);
  const std::string title = messages.Text(text::kSendTitle);
  const DefaultAnswer standard = list.risky ? DefaultAnswer::No : DefaultAnswer::Yes;
  if (list.texts.Details.empty()) {
    return messages.prompts.AskYesNo(Icon::Question, whole, title, standard);
  }
  return messages.prompts.AskWithDetails(Icon::Question, whole, title,
                                         {messages.Text(text::kDetailsLabel), list.texts.Details},
                                         standard);
}

}  // namespace zek
