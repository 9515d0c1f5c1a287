#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "formats/RecordLabels.h"

namespace zek {

/// Where the batch export stands; the values are those of `BatchState`.
enum class BatchState : std::int16_t {
  Idle = 0,
  Started = 1,
  WdcPass = 2,
  SdcPass = 3,
  OvcPass = 4,
  Finishing = 5,
};

/// The catalogues that a batch export takes: what is checked in the browser's batch menu.
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
  std::size_t BatchNodeIndex = 0;  // of the next node to visit in the current pass
  bool BatchBusy = false;          // the node just visited is being handled
  bool IncludeBatchHeader = true;
  RecordLabels Labels;  // `BatchObject`, `BatchDuc`, `BatchDestination` of the visited node

  // For the progress: one step is one catalogue of one node.
  std::string Node;       // the node of the step, "TOPIC/TSC"
  std::string Kind;       // its catalogue: "WDC", "SDC" or "OVC"
  std::size_t Steps = 0;  // of the whole batch
  std::size_t Step = 0;   // the present one, from 1; 0 before the first

  /// The settings name more objects or time controls than were taken: sections that were cut,
  /// topics beyond the largest number, labels that were refused.
  bool PlantCut = false;

  /// What a program without anybody in front of it had to say, in lines (see `LogPrompts`).
  std::vector<std::string> Notes;
  /// The last batch exported every node. A batch that was never run did not.
  bool Succeeded = false;

  bool IsRunning() const { return State != BatchState::Idle; }
};

}  // namespace zek
