#pragma once

#include <string>

#include "plant/Plant.h"

namespace zek::sim {

// The format of a plant folder. Each outstation has one sub-folder of any name, with these files:
//   OUTSTATION.TXT        "Kind = 1" or "Kind = 2" and, optionally, the DUS number "Dus = n"
//                         (1 to 32767); ";" begins a comment
//   SDC.TXT               the calendar
//   WDC.TXT, OVC.TXT      weekday and exception catalogue of a ZEK1
//   T.WDC.TXT, T.EXC.TXT  the same for time control T of a ZEK2; either file defines T
// A missing catalogue is empty. A catalogue file has the form of the controller's listing, in
// windows-1252: a header, the numbered lines, a ".DFV = " line (ZEK2), "EXIT". Text after a line
// with "EXIT" or ".EXC" is ignored. If the two catalogues of a time control have different ".DFV"
// lines, the weekday catalogue's line counts. Lines are checked only by `IsPlainLine`, so that a
// folder can also contain catalogues that a client must reject. A ".TXT" file of any other name is
// an error; other files are ignored.

/// Result of `LoadPlant`.
struct LoadedPlant {
  Plant plant;
  std::string error;  // "", or the path and the error (UTF-8); the plant is then empty
};

/// Loads a plant folder; the path is UTF-8.
LoadedPlant LoadPlant(const std::string& folder);

/// Saves all catalogues of one outstation in its sub-folder of `folder`. Each file is written under
/// another name and then renamed. Returns "", or the path and the first error; the remaining files
/// then stay unchanged.
std::string SavePlantOutstation(const std::string& folder, const Outstation& outstation);

}  // namespace zek::sim
