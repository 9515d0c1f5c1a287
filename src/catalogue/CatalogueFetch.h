#pragma once

#include <cstdint>
#include <optional>

#include "catalogue/CatalogueContent.h"
#include "catalogue/CatalogueKind.h"
#include "catalogue/Catalogues.h"

namespace zek {

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
