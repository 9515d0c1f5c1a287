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

// A heading and the changes below it. Lines of other controls that only leave the local copy are
// listed apart from entries that can't be sent.
struct Section {
  ChangeKind kind;
  bool leaving;
  std::int32_t heading;
  std::int32_t note;  // 0: no note
};

constexpr auto kChangeSections = std::to_array<Section>({
    {ChangeKind::Changed, false, text::kChangedHeading, 0},
    {ChangeKind::Added, false, text::kAddedHeading, 0},
    {ChangeKind::Removed, false, text::kRemovedHeading, 0},
    {ChangeKind::Dropped, false, text::kDroppedHeading, 0},
    {ChangeKind::Dropped, true, text::kLeavingHeading, text::kLeavingNote},
});

constexpr auto kFaultSections = std::to_array<Section>({
    {ChangeKind::Changed, false, text::kDiffersHeading, 0},
    {ChangeKind::Removed, false, text::kMissingHeading, 0},
    {ChangeKind::Added, false, text::kLeftHeading, 0},
});

bool IsLeaving(const CatalogueChange& change) { return change.reason == DropReason::OtherControl; }

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
    case DropReason::MayStay:
      return text::kRemovedMayStay;
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
      return change.kind == section.kind && IsLeaving(change) == section.leaving;
    };
    const auto count = std::count_if(changes_.begin(), changes_.end(), belongs);
    if (count == 0) return;
    const std::string heading = texts_.Text(section.heading);
    if (!report_.Summary.empty()) report_.Summary += ", ";
    report_.Summary.append(heading).append(": ").append(std::to_string(count));
    if (!report_.Details.empty()) report_.Details += kLineEnd;
    AddLine(heading + " (" + std::to_string(count) + ")");
    if (section.note != 0) AddLine(texts_.Text(section.note));
    for (const CatalogueChange& change : changes_)
      if (belongs(change)) AddChange(change);
  }

  ChangeTexts Take() { return std::move(report_); }

 private:
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

}  // namespace

ChangeTexts TextsOfChanges(const std::vector<CatalogueChange>& changes,
                           const LanguageTexts& texts) {
  ChangeTexts told =
      Told({changes, texts, text::kChangeBefore, text::kChangeAfter}, kChangeSections);
  if (std::all_of(changes.begin(), changes.end(), IsLeaving)) {
    told.Summary = texts.Text(text::kChangesNone);
  }
  return told;
}

ChangeTexts TextsOfFaults(const std::vector<CatalogueChange>& faults, const LanguageTexts& texts) {
  return Told({faults, texts, text::kSentLine, text::kFetchedLine}, kFaultSections);
}

namespace {

std::vector<CatalogueChange> Changes(const CatalogueContent& last, const CatalogueDraft& draft,
                                     const CatalogueRules& rules) {
  std::vector<CatalogueChange> changes = ChangesBetween(last, {draft.lines, draft.dfv}, rules);
  for (const std::string& lost : draft.notInLines)
    changes.push_back({ChangeKind::Dropped, lost, {}, DropReason::StopTime});
  return changes;
}

std::int32_t AgainstText(LinesFrom from) {
  switch (from) {
    case LinesFrom::Controller:
      return text::kChangesFetched;
    case LinesFrom::LocalCopy:
      return text::kChangesLocal;
    case LinesFrom::Nowhere:
      break;
  }
  return text::kChangesUnknown;
}

}  // namespace

bool AskSend(const std::string& question, const CatalogueContent& last, const CatalogueDraft& draft,
             const CatalogueRules& rules, const Messages& messages) {
  const ChangeTexts told = TextsOfChanges(Changes(last, draft, rules), messages.texts);
  std::string whole = question;
  if (last.from != LinesFrom::Nowhere || !told.Details.empty()) {
    whole += "\r\n\r\n" + messages.Text(AgainstText(last.from)) + "\r\n" + told.Summary;
  }
  const std::string title = messages.Text(text::kSendTitle);
  if (told.Details.empty()) return messages.prompts.AskYesNo(Icon::Question, whole, title);
  return messages.prompts.AskWithDetails(Icon::Question, whole, title,
                                         {messages.Text(text::kDetailsLabel), told.Details});
}

}  // namespace zek
