#include "catalogue/CatalogueSave.h"

#include <algorithm>
#include <set>
#include <utility>

#include "catalogue/CatalogueDelivery.h"
#include "catalogue/CatalogueEntries.h"
#include "catalogue/CatalogueTitle.h"
#include "catalogue/LineChanges.h"
#include "catalogue/SendQuestion.h"
#include "catalogue/Sendable.h"
#include "catalogue/SharedCatalogue.h"
#include "lang/TextNumbers.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;
using Outcome = SaveResult::Outcome;

// A listing that is older than this when the user answers is fetched again.
constexpr std::int64_t kListingSeconds = 60;

// The texts of the entries of lines, one for each day.
std::set<std::string> EntryTexts(const Lines& lines, const CatalogueRules& rules) {
  std::set<std::string> texts;
  for (const CatalogueEntry& entry : EntriesOf({lines, {}, LinesFrom::Controller, 0}, rules))
    texts.insert(EntryText(entry, entry.day, rules));
  return texts;
}

// One save: store, look what the controller has, ask, send.
class Saving {
 public:
  Saving(const CatalogueId& id, const CatalogueDraft& draft, const CatalogueParts& parts)
      : id_(id), draft_(draft), p_(parts), parts_(SplitLines(id, draft.lines)) {}

  SaveResult Run() {
    for (const CatalogueId& each : id_.Each()) {
      if (!each.IsPartOfShared() || id_.catalogue != Catalogue::Wdc) break;
      if (!SharesBlock(each.Owner())) continue;
      p_.messages.Tell(Icon::Exclamation, text::kSharesBlock, {each.control});
      return Ended(Outcome::Refused);
    }
    if (!CheckFileHasOwn()) return Ended(Outcome::Refused);
    if (const auto failed = StoreFirst()) return Ended(*failed);
    if (draft_.mode == SaveMode::StoreOnly) return Ended(Outcome::Declined);
    if (p_.settings.LocalMode) {
      p_.messages.prompts.Show(Icon::Information,
                               WithFile(text::kSavedLocally, text::kSavedLocallyFile));
      return Ended(Outcome::Saved);
    }
    const std::optional<FetchDelays> delays = ReadFetchDelays(p_.numbers);
    // Content that can't be sent and unusable pauses are reported before anything is sent.
    if (!delays || !CheckSendDelays(p_.numbers) ||
        !CheckSendable(id_, {parts_.own, DfvToSend()}, p_)) {
      return Ended(Outcome::Refused);
    }
    delays_ = *delays;
    const std::optional<Outcome> refused = PlanAndAsk();
    const Outcome outcome = refused ? *refused : Send();
    return Ended(outcome);
  }

 private:
  SaveResult Ended(Outcome outcome) const { return {outcome, stored_, list_, begun_}; }

  bool IsDryRun() const { return draft_.mode == SaveMode::DryRun; }

  // A weekday catalogue is always sent with a value, an exception catalogue only if it is known.
  std::optional<std::string> DfvToSend() const {
    if (!id_.IsOfControl()) return std::nullopt;
    return id_.catalogue == Catalogue::Wdc ? draft_.dfv.value_or(".") : draft_.dfv;
  }

  // The local copy of exceptions has no value, because the controller's value may have changed when
  // the copy is sent.
  std::optional<std::string> DfvToStore() const {
    return id_.catalogue == Catalogue::Wdc ? DfvToSend() : std::nullopt;
  }

  std::string WithFile(std::int32_t first, std::int32_t second) const {
    return p_.messages.Text(first) + "\r\n\r\n" + p_.messages.Text(second) + " '" + id_.localFile +
           "'";
  }

  // --- The local copy ---

  // The edited lines are safe before anything else happens. The other controls' lines stay as the
  // local copy has them.
  std::optional<Outcome> StoreFirst() {
    if (!id_.IsPartOfShared()) return Store(draft_.lines);
    if (draft_.mayChange) return std::nullopt;
    const Lines copy = CopyLines();
    const std::optional<Lines> own = Numbered(copy);
    if (!own) return Outcome::Refused;
    const Lines all = Joined(SplitLines(id_, copy).others, *own);
    if (all.size() <= kMaxCatalogueLines) return Store(all);
    // No program could read that copy. The controller may have fewer lines than it.
    const bool last = draft_.mode == SaveMode::StoreOnly || p_.settings.LocalMode;
    return last ? TooLong() : std::nullopt;
  }

  // Where the copy is missing or can't be used, the next one gets what the controller had. It has
  // no changes that wait to be sent.
  Lines CopyLines() const {
    CatalogueContent copy = p_.copies.Peek(id_);
    if (copy.from == LinesFrom::LocalCopy) return std::move(copy.lines);
    auto known = p_.records.Known(id_);
    return known ? std::move(known->content.lines) : Lines();
  }

  std::optional<Outcome> Store(const Lines& lines) {
    if (IsDryRun()) return std::nullopt;
    if (!p_.copies.Store(id_, lines, DfvToStore())) return Outcome::Failed;
    stored_ = true;
    return std::nullopt;
  }

  std::optional<Lines> Numbered(const Lines& listing) {
    const Lines asBefore = draft_.numberLike.empty()
                               ? listing
                               : Joined(SplitLines(id_, listing).others, draft_.numberLike);
    std::optional<BuiltLines> built = NumberOwnLines(id_, parts_.own, asBefore, p_.numbers);
    if (!built) return std::nullopt;
    if (const auto* const error = std::get_if<BuildError>(&*built)) {
      p_.messages.prompts.Show(Icon::Exclamation, error->MessageIn(p_.messages.texts));
      return std::nullopt;
    }
    return std::get<Lines>(*std::move(built));
  }

  // --- The plan ---

  // Returns the outcome if nothing is to be sent.
  std::optional<Outcome> PlanAndAsk() {
    bool asked = false;
    while (true) {
      const CatalogueContent before = plan_.now;
      const LocalTime planned = p_.records.Now();
      if (const auto failed = id_.IsPartOfShared() ? PlanShared() : PlanPlain()) return failed;
      // Nothing changed while the question was open.
      if (asked && HaveSameLines(before, plan_.now)) return std::nullopt;
      if (!Ask()) return Outcome::Declined;
      const std::int64_t age = SecondsBetween(planned, p_.records.Now());
      if (!id_.IsShared() || (age >= 0 && age <= kListingSeconds)) return std::nullopt;
      asked = true;
    }
  }

  // The whole catalogue of a controller, of all its controls if it is shared.
  std::optional<Outcome> PlanPlain() {
    plan_.send = {draft_.lines, DfvToSend()};
    plan_.expected = {plan_.send, {}};
    plan_.all = draft_.lines;
    if (id_.IsShared()) return Fetch();
    const auto failed = p_.records.FailedSending(id_);
    const auto known = p_.records.Known(id_);
    const auto& before = known ? known : failed;
    plan_.mixed = !known && failed;
    plan_.now = before ? before->content : CatalogueContent();
    plan_.since = before ? before->time : std::string();
    return std::nullopt;
  }

  // What a shared catalogue has now.
  std::optional<Outcome> Fetch() {
    Fetched fetched = FetchCatalogue(id_, p_, delays_, text::kFetching);
    TellFetchFailure(fetched, id_, p_, stored_ ? text::kSaveNotRead : text::kNoAnswer);
    if (fetched.outcome != FetchOutcome::Complete) return Outcome::Failed;
    plan_.now = std::move(fetched.content);
    return plan_.now.linesDropped > 0 ? TooLong() : std::nullopt;
  }

  std::optional<Outcome> TooLong() const {
    p_.messages.Tell(Icon::Exclamation, text::kSharedTooLong, {std::to_string(kMaxCatalogueLines)});
    return Outcome::Refused;
  }

  std::optional<Outcome> PlanShared() {
    if (const auto failed = Fetch()) return failed;
    if (draft_.mayChange && !draft_.mayChange(plan_.now)) return Outcome::Declined;
    const Lines others = SplitLines(id_, plan_.now.lines).others;
    if (!CheckOthersInFile(others)) return Outcome::Refused;
    plan_.missing = MissingSince(plan_.now.lines);
    plan_.whole = WritesWhole();
    const Lines listing = Joined(plan_.now.lines, plan_.missing);
    const std::optional<Lines> own = Numbered(listing);
    if (!own) return Outcome::Refused;
    const Lines kept = Joined(others, plan_.missing);
    plan_.expected = {{*own, {}}, plan_.whole ? WithoutStarred(kept) : kept};
    plan_.all = Joined(plan_.expected.others, *own);
    plan_.send.lines = plan_.whole ? plan_.all : *own;
    if (plan_.all.size() > kMaxCatalogueLines) return TooLong();
    if (!CheckSendable(id_, plan_.send, p_)) return Outcome::Refused;
    return Store(Joined(OthersToKeep(), *own));
  }

  // The others' lines for the local copy: those of the controller, unless the copy has changes of
  // them that wait to be sent.
  Lines OthersToKeep() const {
    const auto known = p_.records.Known(id_);
    const Lines copy = SplitLines(id_, CopyLines()).others;
    const bool fits = copy.size() + plan_.expected.own.lines.size() <= kMaxCatalogueLines;
    if (!known || !fits) return plan_.expected.others;
    const Lines before = SplitLines(id_, known->content.lines).others;
    const bool unsent = !HaveSameLines({copy, {}, LinesFrom::LocalCopy}, {before, {}, {}});
    return unsent ? copy : plan_.expected.others;
  }

  // The lines of other controls that an unfinished write lost.
  Lines MissingSince(const Lines& now) const {
    const auto unfinished = p_.records.Unfinished(id_);
    return unfinished ? LostOthers(id_, unfinished->content.lines, now) : Lines();
  }

  bool WritesWhole() const {
    return id_.catalogue == Catalogue::Ovc || !plan_.missing.empty() ||
           WriteWholeSetting().value_or(false) || LosesOthers();
  }

  // Nothing if the settings don't say.
  std::optional<bool> WriteWholeSetting() const {
    if (p_.profile.ReadIni(kSaveOptions, kWriteWhole, "").empty()) return std::nullopt;
    return ReadYesNo(p_.profile, kSaveOptions, kWriteWhole, "no");
  }

  // To such a controller the own lines alone are never sent, whatever the settings say: the shipped
  // settings have a "no", too, which nobody has thought about.
  // Nor to one of which the record can't be read.
  bool LosesOthers() const {
    const SeenToDo seen = p_.records.SeenAt(id_);
    return seen == SeenToDo::ReplacesByCatalogue || seen == SeenToDo::Unread;
  }

  // Why the whole catalogue is sent; nothing where it always is, or where the settings say so.
  std::string WhyWhole() const {
    if (id_.catalogue != Catalogue::Wdc || !id_.IsPartOfShared()) return {};
    const std::optional<bool> setting = WriteWholeSetting();
    const SeenToDo seen = p_.records.SeenAt(id_);
    if (seen == SeenToDo::Unread && !setting.value_or(false)) {
      const std::string file = Windows1252FromUtf8(p_.records.SeenPath());
      return p_.messages.Text(text::kWholeUnread, {id_.topic, file}) + "\r\n\r\n";
    }
    if (seen != SeenToDo::ReplacesByCatalogue || setting != false) return {};
    return p_.messages.Text(text::kWholeAnyway, {id_.topic}) + "\r\n\r\n";
  }

  // A file may hold lines of other controls; only `put` of the whole object may change them.
  bool CheckOthersInFile(const Lines& others) const {
    if (!draft_.fromFile) return true;
    const FoundAgain found = FindAgain(parts_.others, others);
    Lines differing = found.missing;
    for (const LinePair& pair : found.different) differing.push_back(pair.before);
    return differing.empty() || RefuseFile(differing);
  }

  // A file for another control would erase this one's schedule.
  bool CheckFileHasOwn() const {
    const bool foreign = draft_.fromFile && parts_.own.empty() && !parts_.others.empty();
    return !foreign || RefuseFile(parts_.others);
  }

  // Returns false.
  bool RefuseFile(const Lines& lines) const {
    p_.messages.prompts.ShowDetails(Icon::Exclamation, p_.messages.Text(text::kOthersInFile), {},
                                    {p_.messages.Text(text::kFaultsLabel), OnLines(lines)});
    return false;
  }

  // --- The question ---

  // Own entries that the controller got or lost since it was last read, unless this save makes the
  // same change.
  Lines Conflicts() const {
    const auto known = p_.records.Known(id_);
    if (!id_.IsPartOfShared() || !known) return {};
    const CatalogueRules rules = RulesOf(id_, p_.settings, p_.messages.texts);
    const auto before = EntryTexts(SplitLines(id_, known->content.lines).own, rules);
    const auto now = EntryTexts(SplitLines(id_, plan_.now.lines).own, rules);
    const auto wanted = EntryTexts(plan_.expected.own.lines, rules);
    Lines conflicts;
    for (const std::string& entry : now)
      if (!before.contains(entry) && !wanted.contains(entry)) conflicts.push_back("+ " + entry);
    for (const std::string& entry : before)
      if (!now.contains(entry) && wanted.contains(entry)) conflicts.push_back("- " + entry);
    return conflicts;
  }

  bool Ask() {
    const CatalogueRules rules = RulesOf(id_, p_.settings, p_.messages.texts);
    const bool wdc = id_.catalogue == Catalogue::Wdc;
    SendFacts facts;
    facts.before = plan_.now;
    facts.since = plan_.since;
    facts.after = {plan_.all, plan_.send.dfv, draft_.notInLines};
    facts.after.notes = draft_.notes;
    facts.after.findings = draft_.findings;
    facts.conflicts = Conflicts();
    facts.missing = plan_.missing;
    facts.left = LeftBehind(SplitLines(id_, plan_.now.lines).own, plan_.send.lines);
    facts.seen = p_.records.SeenAt(id_);
    facts.valueUnknown = wdc && id_.IsOfControl() && !draft_.dfv;
    const SendList list = ListChanges(facts, rules, p_.messages.texts);
    if (IsDryRun()) {
      list_ = list.texts.Details;
      return false;
    }
    return AskSend(Heading() + WithFile(text::kAskSend, text::kAskSendFile), facts, list,
                   p_.messages);
  }

  // What is asked about, and who else works on it.
  std::string Heading() const {
    std::string heading = CatalogueTitle(id_, p_.tree, p_.topics, p_.messages.texts) + "\r\n\r\n";
    const std::string others = p_.marks.OthersAt(id_);
    if (!others.empty()) heading += p_.messages.Text(text::kOpenedNote, {others}) + "\r\n\r\n";
    return heading + WhyWhole();
  }

  Outcome Send() {
    const std::vector<CatalogueId> begun = BeginSending();
    CatalogueDelivery delivery(id_, p_, delays_);
    const Outcome outcome = delivery.Run(plan_);
    begun_ = delivery.Begun();
    if (!begun_) {
      // The time of the record is that of the last reading or sending, so it stays.
      for (const CatalogueId& each : begun) p_.records.ForgetSending(each);
      return outcome;
    }
    if (outcome == Outcome::Saved || outcome == Outcome::Remarked) {
      for (const CatalogueId& each : id_.Each()) p_.records.EndSending(each);
    }
    if (delivery.Known().from == LinesFrom::Nowhere) {
      p_.records.ForgetKnown(id_);
    } else {
      p_.records.RememberKnown(id_, delivery.Known());
    }
    return outcome;
  }

  // Returns the controls for which no earlier sending failed.
  std::vector<CatalogueId> BeginSending() {
    std::vector<CatalogueId> begun;
    for (const CatalogueId& each : id_.Each()) {
      CatalogueContent now = plan_.now;
      if (each.IsPartOfShared()) now.lines = SplitLines(each, now.lines).own;
      if (p_.records.BeginSending(each, now)) begun.push_back(each);
    }
    return begun;
  }

  const CatalogueId& id_;
  const CatalogueDraft& draft_;
  const CatalogueParts& p_;
  LinesByOwner parts_;  // of the draft
  FetchDelays delays_;
  SavePlan plan_;
  bool stored_ = false;
  bool begun_ = false;
  std::string list_;
};

}  // namespace

SaveResult SaveTheCatalogue(const CatalogueId& id, const CatalogueDraft& draft,
                            const CatalogueParts& parts) {
  return Saving(id, draft, parts).Run();
}

std::optional<CatalogueContent> MendUnfinished(const CatalogueId& id, CatalogueContent fetched,
                                               const CatalogueParts& parts) {
  const auto unfinished = parts.records.Unfinished(id);
  if (!unfinished || fetched.linesDropped > 0) return fetched;
  const Lines lines = WithoutStarred(unfinished->content.lines);
  const Lines missing = FindAgain(lines, fetched.lines).missing;
  if (missing.empty()) {
    parts.records.EndWrite(id, fetched.lines);
    return fetched;
  }
  const Messages& messages = parts.messages;
  const PromptDetails details{messages.Text(text::kMissingOthersLabel), OnLines(missing)};
  const Lines all = Joined(WithoutStarred(fetched.lines), missing);
  const std::optional<FetchDelays> delays = ReadFetchDelays(parts.numbers);
  const bool possible = !parts.settings.ViewOnly && all.size() <= kMaxCatalogueLines && delays &&
                        CheckSendDelays(parts.numbers) && CheckSendable(id, {all, {}}, parts);
  const std::string why = parts.About(id, messages.Text(text::kUnfinished, {unfinished->time}));
  if (!possible) {
    messages.prompts.ShowDetails(Icon::Exclamation, why, {}, details);
    return fetched;
  }
  if (!messages.prompts.AskWithDetails(Icon::Exclamation,
                                       why + "\r\n\r\n" + messages.Text(text::kAskSendMissing),
                                       messages.Text(text::kSendTitle), details)) {
    return fetched;
  }
  if (const auto error = parts.records.BeginWrite(id, all)) {
    messages.Tell(*error);
    return fetched;
  }
  const LinesByOwner owners = SplitLines(id, all);
  SavePlan plan{{all, {}}, {{owners.own, {}}, owners.others}, all, missing, true, fetched, {}};
  CatalogueDelivery delivery(id, parts, *delays);
  delivery.SendAgain(plan);
  const CatalogueContent& known = delivery.Known();
  if (!delivery.Begun()) return fetched;
  if (known.from == LinesFrom::Nowhere) return std::nullopt;
  parts.records.EndWrite(id, known.lines);
  return known;
}

}  // namespace zek
