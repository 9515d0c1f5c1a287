#include "catalogue/CatalogueDelivery.h"

#include <algorithm>
#include <array>
#include <utility>

#include "catalogue/CatalogueTitle.h"
#include "catalogue/LineChanges.h"
#include "catalogue/SharedCatalogue.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

using Lines = std::vector<std::string>;
using Outcome = SaveResult::Outcome;

constexpr std::size_t kHoursAndMinutes = 5;

struct OutcomeText {
  std::string_view journal;
  std::int32_t text;
};
// All others were sent, but something differs.
constexpr auto kOutcomes = std::to_array<OutcomeText>({{"sent", text::kOutcomeSent},
                                                       {"sent, checked", text::kOutcomeChecked},
                                                       {"sent, not checked", text::kOutcomeSent},
                                                       {"not begun", text::kOutcomeFailed},
                                                       {"failed", text::kOutcomePartly},
                                                       {"cancelled", text::kOutcomePartly}});

}  // namespace

Outcome CatalogueDelivery::Run(const SavePlan& plan) {
  const CountedUp busy(p_.exchange.status, &StatusPanels::Busy);  // no gap between the transfers
  if (id_.IsShared()) {
    const LinesByOwner now = SplitLines(id_, plan.now.lines);
    const Lines before = Joined(Joined(now.others, plan.missing), now.own);
    if (const auto error = p_.records.BeginWrite(id_, before)) {
      p_.messages.Tell(*error);
      return Outcome::Failed;
    }
  }
  const SendReport report = SendCatalogue(id_, plan.send, p_);
  begun_ = begun_ || report.outcome != SendOutcome::NotBegun;
  if (report.outcome != SendOutcome::Sent) return Failed(plan, report);
  known_ = {plan.all, plan.send.dfv, LinesFrom::Controller, 0};
  if (id_.IsShared()) p_.records.SentWrite(id_, plan.all);
  if (NeedsCheck(plan)) return Check(plan);
  return Ended(plan, "sent", Outcome::Saved, p_.messages.Text(text::kSendDone));
}

bool CatalogueDelivery::NeedsCheck(const SavePlan& plan) const {
  return p_.settings.VerifyAfterWrite || id_.IsShared() || plan.mixed ||
         RemovesOrRenumbers(plan.now.lines, plan.send.lines);
}

// The journal is kept; the status line shows the same until the next write.
void CatalogueDelivery::Note(std::string_view journal, std::size_t lines) {
  p_.records.Journal(id_, lines, journal);
  const auto* const known =
      std::find_if(kOutcomes.begin(), kOutcomes.end(),
                   [journal](const OutcomeText& each) { return each.journal == journal; });
  const std::int32_t text = known == kOutcomes.end() ? text::kOutcomeRemarked : known->text;
  const std::string time = DateAndTime(p_.records.Now());
  p_.exchange.status.Outcome = p_.messages.Text(
      text,
      {time.substr(time.find(' ') + 1, kHoursAndMinutes), ShortTitle(id_, p_.messages.texts)});
  p_.exchange.status.Changed();
}

void CatalogueDelivery::Show(Icon icon, const std::string& message, const std::string& details,
                             std::int32_t label) {
  const std::string about = p_.About(id_, message);
  if (details.empty()) return p_.messages.prompts.Show(icon, about);
  p_.messages.prompts.ShowDetails(icon, about, {}, {p_.messages.Text(label), details});
}

Outcome CatalogueDelivery::Ended(const SavePlan& plan, std::string_view journal, Outcome outcome,
                                 const std::string& message, const std::string& details) {
  Note(journal, plan.send.lines.size());
  const bool well = outcome == Outcome::Saved;
  Show(well ? Icon::Information : Icon::Exclamation, message, details, text::kFaultsLabel);
  return outcome;
}

// --- A write that failed ---

Outcome CatalogueDelivery::Failed(const SavePlan& plan, const SendReport& report) {
  const Outcome outcome = report.cancelled ? Outcome::Declined : Outcome::Failed;
  std::string message = p_.messages.Text(report.cancelled ? text::kSendStopped : text::kSendFailed);
  if (!report.refusal.empty()) {
    message.insert(0, p_.messages.Text(text::kControllerError) + " " + report.refusal + "\r\n");
  }
  if (!report.linkFault.empty()) message.insert(0, report.linkFault + "\r\n");
  if (report.outcome == SendOutcome::NotBegun) {
    // The controller is as it was, and so is an earlier unfinished write.
    if (id_.IsShared()) p_.records.EndWrite(id_, plan.now.lines);
    return Ended(plan, "not begun", outcome, message);
  }
  known_ = {};
  Note(report.cancelled ? "cancelled" : "failed", report.linesSent);
  message +=
      "\r\n\r\n" + p_.messages.Text(text::kLinesWereSent, {std::to_string(report.linesSent),
                                                           std::to_string(plan.send.lines.size())});
  TellMixture(plan, std::move(message), report.cancelled || !report.refusal.empty());
  return outcome;
}

// Not after a link that failed: the controller would not answer.
void CatalogueDelivery::TellMixture(const SavePlan& plan, std::string message, bool answered) {
  message += "\r\n" + p_.messages.Text(id_.IsShared() ? text::kMixtureShared : text::kMixture);
  std::string details;
  std::int32_t label = text::kMissingOthersLabel;
  if (answered && id_.IsPartOfShared()) {
    const Verification now = VerifyCatalogue(id_, plan.expected, p_, delays_);
    if (now.IsMade() && now.HasAllOthers())
      message += "\r\n" + p_.messages.Text(text::kOthersWhole);
    details = OnLines(now.others.missing) + OthersChanged(now);
    if (now.others.missing.empty()) label = text::kFaultsLabel;
  }
  Show(Icon::Exclamation, message, details, label);
}

// --- What the controller has now ---

Outcome CatalogueDelivery::Check(const SavePlan& plan) {
  Verification check = VerifyCatalogue(id_, plan.expected, p_, delays_);
  if (check.IsMade() && !check.HasAllOthers()) {
    // One listing could have lost a line on its way.
    Verification second = VerifyCatalogue(id_, plan.expected, p_, delays_);
    if (!second.IsMade()) return NotConfirmed(plan, check, second);
    check = std::move(second);
  }
  if (!check.IsMade()) return NotChecked(plan, check);
  known_ = check.fetched;
  RememberSeen(plan, check);
  if (!check.others.missing.empty()) return Repair(plan, check);
  if (id_.IsShared()) p_.records.EndWrite(id_, check.fetched.lines);
  return Judge(plan, check);
}

Outcome CatalogueDelivery::NotChecked(const SavePlan& plan, const Verification& check) {
  const bool stopped = check.outcome == FetchOutcome::Stopped;
  std::string why = p_.messages.Text(stopped ? text::kVerifyStopped : text::kNotVerified);
  if (!check.linkFault.empty()) why += "\r\n\r\n" + check.linkFault;
  const bool required = p_.settings.VerifyAfterWrite;
  if (required) known_ = {};
  Note("sent, not checked", plan.send.lines.size());
  if (!required) why.insert(0, p_.messages.Text(text::kSendDone) + "\r\n\r\n");
  p_.messages.prompts.Show(Icon::Exclamation, p_.About(id_, why));
  return required ? Outcome::Failed : Outcome::Saved;
}

// What the first check found must not be forgotten.
Outcome CatalogueDelivery::NotConfirmed(const SavePlan& plan, const Verification& check,
                                        const Verification& second) {
  known_ = check.fetched;
  std::string message = p_.messages.Text(text::kFirstCheck);
  if (!second.linkFault.empty()) message += "\r\n\r\n" + second.linkFault;
  std::string details = OnLines(check.others.missing) + OthersChanged(check);
  if (!check.faults.empty()) {
    const ChangeTexts told = TextsOfFaults(check.faults, p_.messages.texts);
    message.insert(0, p_.messages.Text(text::kVerifyFaults) + "\r\n" + told.Summary + "\r\n\r\n");
    details.insert(0, told.Details + "\r\n");
  }
  const bool failed = !check.faults.empty() || p_.settings.VerifyAfterWrite;
  return Ended(plan, "sent, lines of others not confirmed",
               failed ? Outcome::Failed : Outcome::Remarked, message, details);
}

// Old own lines that are still there. They are looked for by number, too: without its new lines a
// nameless line can be nobody's.
Lines CatalogueDelivery::Remaining(const SavePlan& plan, const Verification& check) const {
  Lines left = LeftBehind(SplitLines(id_, plan.now.lines).own, plan.send.lines);
  const Lines gone = FindAgain(left, check.fetched.lines).missing;
  std::erase_if(left, [&gone](const std::string& line) {
    return std::find(gone.begin(), gone.end(), line) != gone.end();
  });
  return left;
}

// The lines of others that are there and not as they were, and those with "*" that are gone;
// nothing if there are none.
std::string CatalogueDelivery::OthersChanged(const Verification& check) const {
  std::string details;
  for (const LinePair& pair : check.others.different) {
    details += p_.messages.Text(text::kChangeBefore) + "  " + OnLines({&pair.before, 1}) +
               p_.messages.Text(text::kChangeAfter) + "  " + OnLines({&pair.after, 1});
  }
  if (!details.empty() && !check.starredGone.empty())
    details += p_.messages.Text(text::kStarredGone) + "\r\n";
  return details + OnLines(check.starredGone);
}

Outcome CatalogueDelivery::Judge(const SavePlan& plan, const Verification& check) {
  const std::string changed = OthersChanged(check);
  const std::string heading =
      p_.messages.Text(check.others.different.empty() ? text::kStarredGone : text::kOthersDiffer);
  const std::string also = changed.empty() ? "" : "\r\n" + heading + "\r\n" + changed;
  if (!check.faults.empty()) {
    const ChangeTexts told = TextsOfFaults(check.faults, p_.messages.texts);
    return Ended(plan, "sent, differs", Outcome::Failed,
                 p_.messages.Text(text::kVerifyFaults) + "\r\n" + told.Summary,
                 told.Details + also);
  }
  const Lines remaining = Remaining(plan, check);
  if (!remaining.empty() || !check.left.empty()) {
    const ChangeTexts told = TextsOfFaults(check.left, p_.messages.texts);
    return Ended(plan, "sent, old lines remain", Outcome::Remarked,
                 p_.messages.Text(text::kOwnLinesRemain),
                 (remaining.size() > check.left.size() ? OnLines(remaining) : told.Details) + also);
  }
  if (!changed.empty())
    return Ended(plan, "sent, others differ", Outcome::Remarked, heading, changed);
  const std::string done =
      p_.settings.VerifyAfterWrite
          ? p_.messages.Text(text::kVerified)
          : p_.messages.Text(text::kSendDone) + "\r\n\r\n" + p_.messages.Text(text::kChecked);
  return Ended(plan, "sent, checked", Outcome::Saved, done);
}

// A line with "*" alone shows nothing: the controller can have removed what it marked.
bool CatalogueDelivery::HasLostAllOthers(const SavePlan& plan, const Verification& check) {
  const std::size_t gone = check.others.missing.size() + check.starredGone.size();
  return !check.others.missing.empty() && gone == plan.expected.others.size();
}

// What became of lines that were not sent shows what the controller does with them.
void CatalogueDelivery::RememberSeen(const SavePlan& plan, const Verification& check) {
  if (plan.now.from == LinesFrom::Nowhere) return;
  const bool othersSent = plan.whole || plan.expected.others.empty();
  if (!othersSent && HasLostAllOthers(plan, check)) {
    return p_.records.RememberSeen(id_, SeenToDo::ReplacesByCatalogue);
  }
  const Lines left = LeftBehind(SplitLines(id_, plan.now.lines).own, plan.send.lines);
  if (left.empty() || !check.others.missing.empty() || !check.starredGone.empty()) return;
  const std::size_t gone = FindAgain(left, check.fetched.lines).missing.size();
  if (gone == 0) return p_.records.RememberSeen(id_, SeenToDo::ReplacesByNumber);
  if (gone < left.size()) return;
  if (!id_.IsPartOfShared()) return p_.records.RememberSeen(id_, SeenToDo::ReplacesByCatalogue);
  if (!othersSent) p_.records.RememberSeen(id_, SeenToDo::ReplacesByControl);
}

// --- Lines of other controls that the write lost ---

Outcome CatalogueDelivery::Repair(const SavePlan& plan, const Verification& check) {
  const bool replacesAll = !plan.whole && HasLostAllOthers(plan, check);
  SavePlan again = plan;
  again.whole = true;
  again.now = check.fetched;
  again.missing = check.others.missing;
  again.expected.others =
      Joined(WithoutStarred(SplitLines(id_, check.fetched.lines).others), again.missing);
  again.all = Joined(again.expected.others, plan.expected.own.lines);
  again.send.lines = again.all;
  if (again.all.size() > kMaxCatalogueLines) {
    return Ended(plan, "sent, lines of others missing", Outcome::Remarked,
                 p_.messages.Text(text::kRepairTooLong, {std::to_string(kMaxCatalogueLines)}),
                 OnLines(again.missing) + OthersChanged(check));
  }
  if (!AskRepair(check, replacesAll)) {
    if (!check.faults.empty()) return Judge(plan, check);
    Note("sent, lines of others missing", plan.send.lines.size());
    return Outcome::Remarked;
  }
  if (replacesAll) {
    if (const auto error = p_.profile.WriteIni(kSaveOptions, kWriteWhole, "yes"))
      p_.messages.Tell(*error);
  }
  return SendAgain(again);
}

Outcome CatalogueDelivery::SendAgain(const SavePlan& plan) {
  const SendReport report = SendCatalogue(id_, plan.send, p_);
  begun_ = begun_ || report.outcome != SendOutcome::NotBegun;
  if (report.outcome != SendOutcome::Sent) return Failed(plan, report);
  const Verification check = VerifyCatalogue(id_, plan.expected, p_, delays_);
  if (!check.IsMade()) {
    known_ = {};
    return NotChecked(plan, check);
  }
  known_ = check.fetched;
  if (check.others.missing.empty()) {
    if (id_.IsShared()) p_.records.EndWrite(id_, check.fetched.lines);
    return Judge(plan, check);
  }
  return Ended(plan, "sent again, lines of others missing", Outcome::Remarked,
               p_.messages.Text(text::kOthersStillMissing), OnLines(check.others.missing));
}

bool CatalogueDelivery::AskRepair(const Verification& check, bool replacesAll) const {
  const Lines& missing = check.others.missing;
  std::string question = p_.messages.Text(text::kAskRepair, {std::to_string(missing.size())});
  if (replacesAll) question += "\r\n\r\n" + p_.messages.Text(text::kReplacesAll);
  std::string details = OnLines(missing);
  const Lines unsent =
      Joined(check.starredGone, StarredOf(SplitLines(id_, check.fetched.lines).others));
  if (!unsent.empty())
    details += "\r\n" + p_.messages.Text(text::kStarredNotSent) + "\r\n" + OnLines(unsent);
  return p_.messages.prompts.AskWithDetails(Icon::Exclamation, p_.About(id_, question),
                                            p_.messages.Text(text::kSendTitle),
                                            {p_.messages.Text(text::kMissingOthersLabel), details},
                                            replacesAll ? DefaultAnswer::Yes : DefaultAnswer::No);
}

}  // namespace zek
