#include "catalogue/CatalogueVerify.h"

#include "catalogue/SendQuestion.h"
#include "lang/TextNumbers.h"

namespace zek {

Verification VerifyCatalogue(const CatalogueId& id, const CatalogueDraft& sent,
                             const CatalogueParts& parts, const FetchDelays& delays) {
  Fetched fetched = FetchCatalogue(id, parts, delays, text::kVerifying);
  Verification verification{fetched.outcome, {}, {}};
  // The rest of a truncated listing is unknown, so it can't be compared.
  if (fetched.outcome != FetchOutcome::Complete || fetched.content.linesDropped > 0) {
    return verification;
  }
  verification.fetched = std::move(fetched.content);
  verification.faults =
      FaultsOf({sent.lines, sent.dfv}, verification.fetched, RulesOf(id, parts.settings));
  return verification;
}

bool TellVerification(const Verification& verification, const Messages& messages) {
  if (verification.fetched.from == LinesFrom::Nowhere) {
    const bool stopped = verification.outcome == FetchOutcome::Stopped;
    messages.Tell(Icon::Exclamation, stopped ? text::kVerifyStopped : text::kNotVerified);
    return false;
  }
  if (verification.faults.empty()) {
    messages.Tell(Icon::Information, text::kVerified);
    return true;
  }
  const ChangeTexts told = TextsOfFaults(verification.faults, messages.texts);
  messages.prompts.ShowDetails(Icon::Exclamation,
                               messages.Text(text::kVerifyFaults) + "\r\n" + told.Summary, {},
                               {messages.Text(text::kFaultsLabel), told.Details});
  return false;
}

}  // namespace zek
