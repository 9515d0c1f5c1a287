#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "catalogue/Catalogue.h"
#include "catalogue/Catalogues.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {

/// The number of attempts of a fetch and of a write.
inline constexpr int kAttempts = 3;

/// Returns text `number`, with the number of the attempt from the second one on: "Hämtar (försök 2
/// av 3)".
inline std::string AttemptText(const Messages& messages, std::int32_t number, int attempt) {
  if (attempt == 1) return messages.Text(number);
  return messages.Text(number) + " (" + messages.Text(text::kAttempt, {std::to_string(attempt)}) +
         ")";
}

/// The pauses of a fetch in seconds (section "GetDelay").
struct FetchDelays {
  std::int16_t a = 0;  // after connecting
  std::int16_t b = 0;  // after ENQ
  std::int16_t d = 0;  // after disconnecting
};

/// Returns nothing, after a message, if one does not fit 16 bits.
std::optional<FetchDelays> ReadFetchDelays(const NumberReader& numbers);

/// The result of a fetch. `Complete` means that the listing arrived up to its "EXIT".
enum class FetchOutcome { Complete, Failed, NoConnection, Stopped };

struct Fetched {
  FetchOutcome outcome = FetchOutcome::Failed;
  CatalogueContent content;  // empty unless complete
  std::string refusal;       // the controller's reply that refused the command; "" without one
  std::string linkFault;     // why the link failed in the last attempt; "" if it did not
};

/// Fetches a catalogue from its controller in at most three attempts and shows text `statusText`
/// meanwhile, without messages; see `TellFetchFailure`. The content
/// has a `dfv` only if the listing had a ".DFV" line.
Fetched FetchCatalogue(const CatalogueId& id, const CatalogueParts& parts,
                       const FetchDelays& delays, std::int32_t statusText);

/// Shows text `number` if the controller did not answer, with its refusal or the fault of the link;
/// for a connect that failed only why.
void TellFetchFailure(const Fetched& fetched, const CatalogueId& id, const CatalogueParts& parts,
                      std::int32_t number = text::kNoAnswer);

}  // namespace zek
