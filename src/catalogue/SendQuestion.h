#pragma once

#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueChanges.h"
#include "catalogue/CatalogueEntries.h"
#include "catalogue/Catalogues.h"
#include "catalogue/ControllerRecords.h"
#include "lang/LanguageTexts.h"

namespace zek {

/// Changes in words: the number of each kind in one line, and a list with headings.
struct ChangeTexts {
  std::string Summary;  // also reports that nothing changes at the controller
  std::string Details;  // lines end in CR LF; empty without changes
};

/// Describes how the controller differs from what was sent (see `FaultsOf`).
ChangeTexts TextsOfFaults(const std::vector<CatalogueChange>& faults, const LanguageTexts& texts);

/// What the question before a write lists.
struct SendFacts {
  CatalogueContent before;  // what the controller has; `LinesFrom::Nowhere` if unknown
  std::string since;        // when that was read; "" if just now
  CatalogueDraft after;     // what it will have
  /// Entries of this control that changed in the controller since it was last read.
  std::vector<std::string> conflicts;
  std::vector<std::string> missing;  // lines of others that an earlier write lost; sent again
  std::vector<std::string> left;     // old lines whose numbers are not sent
  SeenToDo seen = SeenToDo::Nothing;
  bool valueUnknown = false;  // a value is sent, and none was read
};

/// The question's list in words; `risky` if something is overwritten, removed or left behind.
struct SendList {
  ChangeTexts texts;
  bool risky = false;
};
SendList ListChanges(const SendFacts& facts, const CatalogueRules& rules,
                     const LanguageTexts& texts);

/// Asks `question` with that list. The default answer is No if the list is risky.
bool AskSend(const std::string& question, const SendFacts& facts, const SendList& list,
             const Messages& messages);

}  // namespace zek
