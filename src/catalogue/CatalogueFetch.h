#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "catalogue/Catalogue.h"
#include "catalogue/Catalogues.h"
#include "lang/Messages.h"
#include "lang/TextNumbers.h"

namespace zek {

/// A fetch and a write are each tried so often.
inline constexpr int kAttempts = 3;

/// Text `number`, and from the second attempt on which one it is: "Hämtar (försök 2 av 3)".
inline std::string AttemptText(const Messages& messages, std::int32_t number, int attempt) {
  if (attempt == 1) return messages.Text(number);
  return messages.Text(number) + " (" + messages.Text(text::kAttempt, {std::to_string(attempt)}) +
         ")";
}

/// The pauses of a fetch in seconds (section "GetDelay").
struct FetchDelays {
  std::int16_t a = 0;  // after the connection was made
  std::int16_t b = 0;  // after ENQ
  std::int16_t d = 0;  // after the connection was closed
};

/// Nothing when one does not fit, which was shown.
std::optional<FetchDelays> ReadFetchDelays(const NumberReader& numbers);

/// How a fetch ended. `Complete` means that the listing arrived whole, up to its "EXIT".
enum class FetchOutcome { Complete, Failed, NoConnection, Stopped };

struct Fetched {
  FetchOutcome outcome = FetchOutcome::Failed;
  CatalogueContent content;  // empty unless complete
};

/// Fetches a catalogue from its controller in at most three attempts; text `statusText` shows
/// meanwhile. Only the connection itself reports why it failed.
Fetched FetchCatalogue(const CatalogueId& id, const CatalogueParts& parts,
                       const FetchDelays& delays, std::int32_t statusText);

}  // namespace zek
