#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "formats/ExportRecords.h"

namespace zek {

/// The progress of the batch export; the numbers are those of `BatchState`.
enum class BatchState : std::int16_t {
  Idle = 0,
  Started = 1,
  WdcPass = 2,
  SdcPass = 3,
  OvcPass = 4,
  Finishing = 5,
};

/// The kinds of catalogues to export: those checked in the browser's batch menu.
struct BatchKinds {
  bool WDC = true;
  bool SDC = true;
  bool OVC = true;

  int Count() const { return int{WDC} + int{SDC} + int{OVC}; }
};

/// The shared state of the batch export.
struct Batch {
  BatchState State = BatchState::Idle;  // `BatchState`
  BatchKinds Kinds;
  std::size_t BatchNodeIndex = 0;  // next node to visit in the current pass
  bool BatchBusy = false;          // the visited node is being exported
  bool IncludeBatchHeader = true;
  RecordLabels Labels;  // `BatchObject`, `BatchDuc`, `BatchDestination` of the visited node

  // Progress: one step is one catalogue of one node.
  std::string Node;       // the node of the step, "TOPIC/TSC"
  std::string Kind;       // its catalogue: "WDC", "SDC" or "OVC"
  std::size_t Steps = 0;  // of the whole batch
  std::size_t Step = 0;   // the present one, from 1; 0 before the first

  /// Parts of the plant are missing: a section of the settings was cut, there were too many topics,
  /// or a label was refused.
  bool PlantCut = false;

  /// Messages of an unattended run, one line each (see `LogPrompts`).
  std::vector<std::string> Notes;
  /// True if the last batch exported every node; false before the first batch.
  bool Succeeded = false;
  /// The report of the last batch, its headline first, with line ends; "" until it has ended.
  std::string Outcome;

  bool IsRunning() const { return State != BatchState::Idle; }
};

}  // namespace zek
