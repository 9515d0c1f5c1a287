#include "catalogue/CatalogueVerify.h"

#include <utility>

#include "catalogue/ChangeTexts.h"
#include "catalogue/LastRead.h"
#include "lang/TextNumbers.h"

namespace zek {

Verification VerifyCatalogue(ZV_Proc& proc, Catalogue catalogue, const ReadDelays& delays) {
  Transfer sent = proc.transfer;
  const CatalogueContent wanted{sent.CatalogueLines, DfvToSend(proc, catalogue)};
  proc.transfer.Verifying = true;
  const FetchOutcome outcome = FetchCatalogue(proc, catalogue, delays, text::kVerifying);
  // A cancel that came after the last wait of the fetch must not end the waits of others.
  proc.waits.CancelRequested = false;
  Verification verification;
  verification.stopped = outcome == FetchOutcome::Stopped;
  // Of a listing that was cut nobody knows what the rest says.
  verification.fetched = outcome == FetchOutcome::Complete && proc.transfer.LinesDropped == 0;
  if (verification.fetched) {
    RememberRead(proc, catalogue);
    const LastRead& fetched = proc.transfer.Last;
    verification.faults = FaultsOf(wanted, {fetched.Lines, fetched.Dfv}, RulesOf(proc, catalogue));
  }
  sent.Last = std::move(proc.transfer.Last);
  proc.transfer = std::move(sent);
  return verification;
}

bool TellVerification(ZV_Proc& proc, const Verification& verification) {
  Prompts& prompts = proc.outside.prompts;
  if (!verification.fetched) {
    const auto why = verification.stopped ? text::kVerifyStopped : text::kNotVerified;
    prompts.Show(Icon::Exclamation, proc.Text(why));
    return false;
  }
  if (verification.faults.empty()) {
    prompts.Show(Icon::Information, proc.Text(text::kVerified));
    return true;
  }
  const ChangeTexts told = TextsOfFaults(verification.faults, proc.texts);
  prompts.ShowDetails(Icon::Exclamation, proc.Text(text::kVerifyFaults) + "\r\n" + told.Summary, {},
                      {proc.Text(text::kFaultsLabel), told.Details});
  return false;
}

}  // namespace zek
