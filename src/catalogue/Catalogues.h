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

/// The parts that reading and writing catalogues use. They live as long as the session.
struct CatalogueParts {
  const Settings& settings;
  NumberReader numbers;  // for the pauses in the settings
  Messages messages;
  LocalCopies& copies;
  Exchange exchange;
};

/// Whether a read uses the local copy if it exists.
enum class CopyUse { AsSet, Take, PassOver };

/// A catalogue from an editor or a file, to be sent.
struct CatalogueDraft {
  std::vector<std::string> lines;
  std::optional<std::string> dfv;       // empty: the controller keeps its value
  std::vector<std::string> notInLines;  // what the table has and lines can't hold, in words
};

/// Reads and writes the catalogues of the plant. Failures are shown to the user.
class Catalogues {
 public:
  explicit Catalogues(const CatalogueParts& parts) : p_(parts) {}

  /// Fetches a catalogue from its controller and stores it as the local copy, or reads the local
  /// copy; `use`, the settings and the user decide. Returns nothing if that failed, if the user
  /// cancelled it (without a message), or during another transfer.
  std::optional<CatalogueContent> GetCatalogue(const CatalogueId& id, CopyUse use = CopyUse::AsSet);

  /// Stores a catalogue as the local copy and, if the user accepts the changes, sends it to the
  /// controller. Returns true when the controller accepted it (with `VerifyAfterWrite`: has the
  /// same content now), or in local mode.
  bool SaveCatalogue(const CatalogueId& id, CatalogueDraft draft);

  /// Makes the next save of this catalogue compare with the local copy.
  void CompareWithCopy(const CatalogueId& id) { Remember(id, p_.copies.Peek(id)); }

  /// Returns a catalogue as it was last read, or sent without fault; `LinesFrom::Nowhere` if
  /// unknown.
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
