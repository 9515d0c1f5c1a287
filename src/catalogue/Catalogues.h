#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/LocalCopies.h"
#include "comm/Connection.h"
#include "lang/Messages.h"
#include "settings/Settings.h"

namespace zek {

/// What reading and writing catalogues work with; all of it lives as long as the session.
struct CatalogueParts {
  const Settings& settings;
  NumberReader numbers;  // for the pauses of the settings
  Messages messages;
  LocalCopies& copies;
  Exchange exchange;
};

/// Whether a read takes the local copy when there is one.
enum class CopyUse { AsSet, Take, PassOver };

/// What an editor or a file gives to be sent.
struct CatalogueDraft {
  std::vector<std::string> lines;
  std::optional<std::string> dfv;       // nothing leaves the controller's value alone
  std::vector<std::string> notInLines;  // what the editor's table holds and lines can't, in words
};

/// Reads and writes the catalogues of the plant. Failures are shown to the user.
class Catalogues {
 public:
  explicit Catalogues(const CatalogueParts& parts) : p_(parts) {}

  /// Fetches a catalogue from its controller and keeps it as the local copy, or takes the local
  /// copy, as `use`, the settings and the user say. Nothing when that failed, or when the user
  /// cancelled it (without a message), or while another catalogue is transferred.
  std::optional<CatalogueContent> GetCatalogue(const CatalogueId& id, CopyUse use = CopyUse::AsSet);

  /// Stores a catalogue as the local copy and, when the user agrees to what that changes, sends it
  /// to the controller. True when the controller took it (with `VerifyAfterWrite`: and has it now),
  /// or in local mode.
  bool SaveCatalogue(const CatalogueId& id, CatalogueDraft draft);

  /// Makes the local copy what the next save of this catalogue is compared with.
  void CompareWithCopy(const CatalogueId& id) { Remember(id, p_.copies.Peek(id)); }

  /// What was last read of a catalogue, or sent without fault; `LinesFrom::Nowhere` when unknown.
  CatalogueContent LastKnown(const CatalogueId& id) const;

 private:
  void Remember(const CatalogueId& id, CatalogueContent content) {
    last_ = {id, std::move(content)};
  }

  struct LastRead {
    CatalogueId id;
    CatalogueContent content;
  };

  CatalogueParts p_;
  LastRead last_;
};

}  // namespace zek
