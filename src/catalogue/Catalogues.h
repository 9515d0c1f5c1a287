#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/ControllerRecords.h"
#include "catalogue/LocalCopies.h"
#include "catalogue/ObjectTree.h"
#include "catalogue/OpenMarks.h"
#include "comm/Connection.h"
#include "lang/Messages.h"
#include "settings/Settings.h"

namespace zek {

/// The parts that reading and writing catalogues use. They live as long as the session.
struct CatalogueParts {
  const Settings& settings;
  Profile& profile;
  NumberReader numbers;  // for the pauses in the settings
  Messages messages;
  LocalCopies& copies;
  ControllerRecords& records;
  OpenMarks& marks;
  const ObjectTree& tree;  // for the names
  const TopicTable& topics;
  Exchange exchange;

  /// Returns a message that names the controller on its last line, unless it did so already.
  std::string About(const CatalogueId& id, std::string message) const;
};

/// Whether a read uses the local copy if it exists.
enum class CopyUse { AsSet, Take, PassOver };

/// How far a save goes.
enum class SaveMode {
  Send,
  StoreOnly,  // only the local copy
  DryRun,     // store and send nothing, list the changes
};

/// A catalogue from an editor or a file, to be sent. Of a catalogue that controls share, only the
/// lines of the control that is saved count.
struct CatalogueDraft {
  std::vector<std::string> lines;
  std::optional<std::string> dfv;       // empty: the controller keeps its value
  std::vector<std::string> notInLines;  // what the table has and lines can't hold, in words
  bool fromFile = false;                // refuse lines of others that the controller does not have
  SaveMode mode = SaveMode::Send;
  std::vector<std::string> notes{};     // what the user may not have meant, in words
  std::vector<std::string> findings{};  // what the user's changes cause and may not mean, likewise
  /// Of a planned change: what a shared catalogue must still pass before it is changed. The lines
  /// are on the disk already, so they are stored only then.
  std::function<bool(const CatalogueContent& now)> mayChange{};
  /// Own lines that an interrupted write may have removed: the new lines are numbered as if they
  /// were still there. Empty: as the controller has them.
  std::vector<std::string> numberLike{};
};

/// The result of a save.
struct SaveResult {
  enum class Outcome {
    Saved,     // sent and, where that was needed, checked; or stored in local mode
    Remarked,  // sent, but the user was shown something that differs; a retry would not mend it
    Failed,    // not sent, or only in part; it can be tried again
    Declined,  // not wanted by the user or the mode
    Refused,   // can't be sent; a retry would not mend it
  };
  Outcome outcome = Outcome::Failed;
  bool stored = false;  // the local copy has the new lines
  std::string list;     // of a dry run: the changes, with lines that end in CR LF
  bool begun = false;   // at least the command before the lines was sent

  bool Done() const { return outcome == Outcome::Saved; }
};

/// Reads and writes the catalogues of the plant. Failures are shown to the user.
class Catalogues {
 public:
  explicit Catalogues(const CatalogueParts& parts) : p_(parts) {}

  /// Fetches a catalogue from its controller and stores it as the local copy, or reads the local
  /// copy; `use`, the settings and the user decide. Returns nothing if that failed, if the user
  /// cancelled it (without a message), or during another transfer.
  std::optional<CatalogueContent> GetCatalogue(const CatalogueId& id, CopyUse use = CopyUse::AsSet);

  /// Fetches a catalogue and leaves the local copy and all records as they are. Returns nothing,
  /// after a message, if that failed, and during another transfer.
  std::optional<CatalogueContent> Look(const CatalogueId& id);

  /// Stores a catalogue as the local copy and, if the user accepts the changes, sends it to the
  /// controller. A shared catalogue is fetched first: own lines get numbers that no other control
  /// has, and the others' lines stay. After such a write, and after one that removes or renumbers
  /// lines, the catalogue is fetched again and compared.
  SaveResult SaveCatalogue(const CatalogueId& id, const CatalogueDraft& draft);

  /// Fetches a catalogue, then saves it as it was before the last sending (`BeforeSending`).
  SaveResult SendBack(const CatalogueId& id);

  /// Returns when the lines that `SendBack` would send were replaced; "" if it has none.
  std::string TimeOfBefore(const CatalogueId& id) const;

  /// Returns a catalogue as it was last read from its controller or sent to it;
  /// `LinesFrom::Nowhere` if that is unknown.
  CatalogueContent LastKnown(const CatalogueId& id) const;

  /// True if the local copy has lines that the controller, as far as it is known, has not.
  bool HasUnsentChanges(const CatalogueId& id) const;

 private:
  CatalogueParts p_;
};

}  // namespace zek
