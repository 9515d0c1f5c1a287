#pragma once

#include <string>

#include "plant/Plant.h"

namespace zek::sim {

// A plant on the disk: one sub-folder an outstation, named as one likes, holding
//   OUTSTATION.TXT    "Kind = 1" or "Kind = 2", and "Dus = n" (1 to 32767) for one with a DUS
//   number;
//                     ";" begins a comment
//   SDC.TXT           the calendar
//   WDC.TXT, OVC.TXT  weekday and exception catalogue of a ZEK1
//   T.WDC.TXT, T.EXC.TXT  the same for time control T of a ZEK2; either makes T known
// A missing catalogue is an empty one. A catalogue is kept as the controller lists it, in
// windows-1252: a header, the numbered lines, a ".DFV = " line (ZEK2), "EXIT"; what follows a line
// with "EXIT" or ".EXC" is not read. When the two catalogues of a time control give different
// ".DFV" lines, the weekday catalogue's counts. Lines are not checked beyond `IsPlainLine`, so that
// a folder can also hold catalogues which a client must complain about. A ".TXT" file of any other
// name is an error, other files are left alone.

/// Paths are UTF-8 where paths use "/".
struct LoadedPlant {
  Plant plant;
  std::string error;  // "" or what is wrong where, UTF-8; the plant is empty then
};
LoadedPlant LoadPlant(const std::string& folder);

/// Writes all catalogues of one outstation back into its sub-folder of `folder`, each beside and
/// renamed over. Returns "" or what went wrong where; files that were not reached stay as they
/// were.
std::string SavePlantOutstation(const std::string& folder, const Outstation& outstation);

}  // namespace zek::sim
