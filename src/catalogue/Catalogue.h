#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/ZV_Proc.h"
#include "catalogue/History.h"

namespace zek {

/// The three catalogues of a time control.
enum class Catalogue { Sdc, Wdc, Ovc };

/// The name of the selected node's local copy; "" when it has no such catalogue.
const std::string& LocalFileOf(const Selection& selection, Catalogue catalogue);

/// True when the selected object's catalogues belong to named time controls (its kind is not 1):
/// their weekday and exception catalogues have a ".DFV" value.
bool HasNamedControls(const ZV_Proc& proc);

/// Text `number`, and from the second attempt on which one it is: "Hämtar (försök 2 av 3)".
std::string AttemptText(const ZV_Proc& proc, std::int32_t number, int attempt);

/// Fetches a catalogue of the selected node, or takes its local copy, as settings and user say.
/// True when `transfer.CatalogueLines` holds the catalogue; the user was told otherwise. A read
/// that the user cancelled is false without a message, and so is one that is begun while another
/// catalogue is transferred.
bool GetCatalogue(ZV_Proc& proc, Catalogue catalogue);

/// The pauses of a read in seconds.
struct ReadDelays {
  std::int16_t a = 0;  // after the connection was made
  std::int16_t b = 0;  // after ENQ
  std::int16_t d = 0;  // after the connection was closed
};

/// Reads them from the settings; nothing when one can't be kept, which was told.
std::optional<ReadDelays> ReadDelaysOf(ZV_Proc& proc);

/// How a fetch ended. `Complete` means that the listing has arrived whole, up to its "EXIT".
enum class FetchOutcome { Complete, Failed, NoConnection, Stopped };

/// Fetches a catalogue of the selected node from the controller into `proc.transfer`, past its
/// local copy, which stays as it is. Only the connection itself tells why it failed.
FetchOutcome FetchCatalogue(ZV_Proc& proc, Catalogue catalogue, const ReadDelays& delays,
                            std::int32_t statusText);

/// Stores `transfer.CatalogueLines` (and `CatalogueDfv`) as the local copy and, when the user
/// agrees to what that changes, sends them to the controller. True when the controller took them
/// (with `VerifyAfterWrite`: and has them now), or in local mode.
bool SaveCatalogue(ZV_Proc& proc, Catalogue catalogue);

/// Loads the selected node's local copy into `proc.transfer`; tells why when it can't.
bool LoadLocalCopy(ZV_Proc& proc, Catalogue catalogue);

/// Puts a catalogue text by the rules of a local copy into `proc.transfer`. False when it has too
/// many lines, which was told with `name`.
bool TakeLocalCopy(ZV_Proc& proc, std::string_view file, const std::string& name);

/// Stores `transfer.CatalogueLines` as the selected node's local copy, below a line with `dfv` when
/// there is one. The old copy is kept in its history first. False when that failed, which was told;
/// the old copy is then still there, or the new one whose name may not be on the disk.
bool StoreLocalCopy(ZV_Proc& proc, Catalogue catalogue, const std::optional<std::string>& dfv);

/// Deletes the selected node's local copy, after it was kept in its history. False when that
/// failed, which was told.
bool EraseLocalCopy(ZV_Proc& proc, Catalogue catalogue);

/// The earlier local copies of the selected node's catalogue.
History HistoryOf(ZV_Proc& proc, Catalogue catalogue);

/// Puts an earlier copy in the place of the local copy, which is kept first. Nothing is sent. False
/// when that failed, which was told.
bool RestoreLocalCopy(ZV_Proc& proc, Catalogue catalogue, const KeptCopy& kept);

/// `DifferencesOf` an earlier copy and the local copy, which may have been erased; nothing when one
/// of them can't be read, which was told.
std::optional<std::vector<std::string>> CompareWithKept(const ZV_Proc& proc, Catalogue catalogue,
                                                        const KeptCopy& kept);

/// True when the selected node's local copy exists.
bool HasLocalCopy(const ZV_Proc& proc, Catalogue catalogue);

}  // namespace zek
