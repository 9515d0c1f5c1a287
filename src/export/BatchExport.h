#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "app/ZV_Proc.h"
#include "export/BatchFile.h"
#include "export/BatchReport.h"

namespace zek {

/// The batch export: one pass over all nodes for each kind of catalogue (WDC, SDC, OVC). A pass
/// fetches the catalogue of every time control and writes its records to the file of that kind.
/// `proc.batch` shows the progress. Messages go to the log and, as reasons, to the report.
///
///     Started -> WdcPass -> SdcPass -> OvcPass -> Finishing -> Idle
///
/// `Cancel` leads from any state to Finishing.
class BatchExport {
 public:
  explicit BatchExport(ZV_Proc& proc) : proc_(proc) {}
  BatchExport(const BatchExport&) = delete;
  BatchExport& operator=(const BatchExport&) = delete;
  /// Cancels a running batch; what it has exported is kept.
  ~BatchExport();

  /// Called with the index of each node that the batch selects.
  std::function<void(std::size_t node)> Selected = [](std::size_t) {};

  /// Starts to export `proc.batch.Kinds` (`Menu_Batch_Run`): creates the folder "Batch" and the
  /// files. The report lists files that can't be written; the batch visits the nodes anyway.
  void Start();

  /// Does one step (`Timer_Batch`): visits the next node and fetches its catalogue, with all waits,
  /// or finishes. Does nothing when called during those waits. Returns true if a step remains.
  bool Tick();

  /// Ends a running fetch at its next turn, and the batch at its next tick.
  void Cancel();

  bool IsRunning() const { return proc_.batch.IsRunning(); }

  /// Stores notes and report beside the exported files as "BATCH", time and ".TXT", for use after
  /// an unattended run. On failure shows the error and the report's details as messages.
  void StoreReport();

  /// The report of the last batch, complete once the batch has ended.
  const BatchReport& Report() const { return report_; }

 private:
  // One pass: its file and the number of complete catalogues in it.
  struct Pass {
    BatchState state;
    BatchFile file;
    std::size_t exported = 0;
  };

  void Step();
  void NextState();
  void Select(std::size_t node);
  void Export(Pass& pass, std::size_t node);
  bool FetchAndWrite(Pass& pass);
  void NoteReplaced(const CatalogueId& id);
  std::optional<CatalogueContent> Fetch(const CatalogueId& id);
  void TakeMessage(const std::string& line);
  void Finish();
  std::string Text(std::int32_t number) const { return proc_.Text(number); }

  ZV_Proc& proc_;
  std::vector<Pass> passes_;       // one per checked kind
  std::vector<std::string> told_;  // messages about the current catalogue
  BatchReport report_;
  std::int16_t loadedObject_ = -1;  // its shared catalogue was fetched in this pass; -1: none
  bool stepping_ = false;
};

/// Returns text 629 for the current catalogue, or "" if no export is running.
std::string BatchProgress(const ZV_Proc& proc);

}  // namespace zek
