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

/// The batch export: one pass over all nodes for each kind of catalogue, WDC, SDC and OVC, every
/// time control fetched and written as records to the file of the kind. `proc.batch` shows where
/// it stands. While it works, messages become lines of the log and reasons in the report.
///
///     Started -> WdcPass -> SdcPass -> OvcPass -> Finishing -> Idle
///
/// `Cancel` leads from any state to Finishing.
class BatchExport {
 public:
  explicit BatchExport(ZV_Proc& proc) : proc_(proc) {}
  BatchExport(const BatchExport&) = delete;
  BatchExport& operator=(const BatchExport&) = delete;
  /// A batch that is still running is cancelled; what it has exported is kept.
  ~BatchExport();

  /// Called with the place of every node that the walk selects.
  std::function<void(std::size_t node)> Selected = [](std::size_t) {};

  /// Begins to export the kinds of `proc.batch.Kinds` (`Menu_Batch_Run`): makes the folder "Batch"
  /// and opens the files. What can't be written is told in the report; the walk is taken anyway.
  void Start();

  /// One step (`Timer_Batch`): visits the next node, fetching its catalogue with all the waits
  /// that takes, or finishes. May be called from inside those waits, and does nothing then. True
  /// when there is another step to take.
  bool Tick();

  /// Ends a fetch that is running, as soon as its wait sees it, and the batch with the next tick.
  void Cancel();

  bool IsRunning() const { return proc_.batch.IsRunning(); }

  /// Stores notes and report as "BATCH", time and ".TXT" beside the exported files, for who looks
  /// after a run that nobody watched. When that fails, it is told with the whole report.
  void StoreReport();

  /// Of the last batch, whole when it is no longer running.
  const BatchReport& Report() const { return report_; }

 private:
  // One pass: its file, and how many catalogues are whole in it.
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
  std::optional<CatalogueContent> Fetch(const CatalogueId& id);
  void TakeMessage(const std::string& line);
  void Finish();
  std::string Text(std::int32_t number) const { return proc_.Text(number); }

  ZV_Proc& proc_;
  std::vector<Pass> passes_;       // of the checked kinds
  std::vector<std::string> told_;  // messages about the catalogue that is being exported
  BatchReport report_;
  std::int16_t loadedObject_ = -1;  // whose shared catalogue of this pass is the local copy now
  bool stepping_ = false;
};

/// Text 629 of the catalogue that is being exported; "" when none is.
std::string BatchProgress(const ZV_Proc& proc);

}  // namespace zek
