#pragma once

#include <string>
#include <utility>
#include <vector>

#include "app/ZV_Proc.h"
#include "catalogue/Catalogue.h"

namespace zek::test {

/// What a fetch gave.
struct Fetched {
  bool done = false;
  std::vector<std::string> lines;
  std::string value;
};

inline Fetched Fetch(ZV_Proc& proc, Catalogue catalogue) {
  const bool done = GetCatalogue(proc, catalogue);
  return {done, proc.transfer.CatalogueLines, proc.transfer.CatalogueDfv};
}

/// Sends a catalogue, as an editor or a command does.
inline bool Send(ZV_Proc& proc, Catalogue catalogue, std::vector<std::string> lines,
                 std::string value = ".") {
  proc.transfer.CatalogueLines = std::move(lines);
  proc.transfer.CatalogueDfv = std::move(value);
  return SaveCatalogue(proc, catalogue);
}

/// A cancel that no wait has taken yet.
inline bool CancelIsPending(const ZV_Proc& proc) { return proc.waits.CancelRequested; }

}  // namespace zek::test
