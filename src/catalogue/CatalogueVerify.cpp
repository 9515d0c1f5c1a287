#include "catalogue/CatalogueVerify.h"

#include <algorithm>
#include <iterator>

#include "catalogue/SharedCatalogue.h"
#include "lang/TextNumbers.h"

namespace zek {

Verification VerifyCatalogue(const CatalogueId& id, const Expected& expected,
                             const CatalogueParts& parts, const FetchDelays& delays) {
  Fetched fetched = FetchCatalogue(id, parts, delays, text::kVerifying);
  Verification verification;
  verification.outcome = fetched.outcome;
  verification.linkFault = fetched.linkFault;
  // The rest of a truncated listing is unknown, so it can't be compared.
  if (fetched.outcome != FetchOutcome::Complete || fetched.content.linesDropped > 0) {
    return verification;
  }
  verification.fetched = std::move(fetched.content);
  const LinesByOwner there = SplitLines(id, verification.fetched.lines);
  CatalogueContent own{there.own, verification.fetched.dfv, LinesFrom::Controller, 0};
  // A listing without a ".DFV" line means that there is no value.
  if (expected.own.dfv && !own.dfv) own.dfv = ".";
  const auto differences = FaultsOf({expected.own.lines, expected.own.dfv}, own,
                                    RulesOf(id, parts.settings, parts.messages.texts));
  std::partition_copy(differences.begin(), differences.end(), std::back_inserter(verification.left),
                      std::back_inserter(verification.faults),
                      [](const CatalogueChange& each) { return each.kind == ChangeKind::Added; });
  verification.others = FindAgain(expected.others, verification.fetched.lines);
  verification.starredGone = StarredOf(verification.others.missing);
  verification.others.missing = WithoutStarred(verification.others.missing);
  return verification;
}

}  // namespace zek
