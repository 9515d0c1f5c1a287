#include "catalogue/CatalogueEntries.h"
#include "catalogue/CatalogueSend.h"
#include "catalogue/CatalogueVerify.h"
#include "catalogue/Catalogues.h"
#include "catalogue/CommandText.h"
#include "catalogue/SendQuestion.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

// A weekday catalogue is always sent with a value; one of exceptions only when it is known.
std::optional<std::string> DfvToSend(const CatalogueId& id, const CatalogueDraft& draft) {
  if (!id.IsOfControl()) return std::nullopt;
  return id.catalogue == Catalogue::Wdc ? draft.dfv.value_or(".") : draft.dfv;
}

// The local copy of exceptions holds no value, since it may be another one by then.
std::optional<std::string> DfvToStore(const CatalogueId& id, const CatalogueDraft& draft) {
  return id.catalogue == Catalogue::Wdc ? draft.dfv : std::nullopt;
}

std::string WithFile(const Messages& messages, std::int32_t first, std::int32_t second,
                     const std::string& name) {
  return messages.Text(first) + "\r\n\r\n" + messages.Text(second) + " '" + name + "'";
}

}  // namespace

bool Catalogues::SaveCatalogue(const CatalogueId& id, CatalogueDraft draft) {
  // From inside a wait of another transfer.
  if (p_.exchange.status.Busy > 0 || id.localFile.empty()) return false;
  draft.dfv = DfvToSend(id, draft);
  if (!p_.copies.Store(id, draft.lines, DfvToStore(id, draft))) return false;
  if (p_.settings.LocalMode) {
    p_.messages.prompts.Show(Icon::Information, WithFile(p_.messages, text::kSavedLocally,
                                                         text::kSavedLocallyFile, id.localFile));
    return true;
  }
  const std::string question =
      WithFile(p_.messages, text::kAskSend, text::kAskSendFile, id.localFile);
  if (!AskSend(question, LastKnown(id), draft, RulesOf(id, p_.settings), p_.messages)) return false;
  return Send(id, draft);
}

// What can't be sent, and a pause that can't be kept, is shown before anything is sent.
bool Catalogues::Send(const CatalogueId& id, const CatalogueDraft& draft) {
  if (!CheckSendDelays(p_.numbers) || !CheckSendable(id, draft, p_)) return false;
  if (p_.settings.VerifyAfterWrite) return SendAndVerify(id, draft);
  const SendOutcome outcome = SendCatalogue(id, draft, p_);
  RememberSent(id, draft, outcome);
  return TellSent(outcome);
}

bool Catalogues::SendAndVerify(const CatalogueId& id, const CatalogueDraft& draft) {
  const std::optional<FetchDelays> delays = ReadFetchDelays(p_.numbers);
  if (!delays) return false;
  SendOutcome outcome = SendOutcome::NotBegun;
  Verification verification;
  {
    const CountedUp busy(p_.exchange.status, &StatusPanels::Busy);  // without a gap between the two
    outcome = SendCatalogue(id, draft, p_);
    if (outcome == SendOutcome::Sent) verification = VerifyCatalogue(id, draft, p_, *delays);
  }
  if (outcome != SendOutcome::Sent) {
    RememberSent(id, draft, outcome);
    return TellSent(outcome);
  }
  Remember(id, verification.fetched);
  return TellVerification(verification, p_.messages);
}

void Catalogues::RememberSent(const CatalogueId& id, const CatalogueDraft& draft,
                              SendOutcome outcome) {
  if (outcome == SendOutcome::Sent) {
    Remember(id, {draft.lines, draft.dfv, LinesFrom::Controller});
  } else if (outcome == SendOutcome::Failed) {
    last_ = {};  // what the controller has now is unknown
  }
}

bool Catalogues::TellSent(SendOutcome outcome) const {
  if (outcome == SendOutcome::Sent) {
    p_.messages.Tell(Icon::Information, text::kSendDone);
    return true;
  }
  p_.messages.Tell(Icon::Exclamation, text::kSendFailed);
  return false;
}

}  // namespace zek
