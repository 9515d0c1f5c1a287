#pragma once

#include <string>
#include <utility>
#include <vector>

#include "app/ZV_Proc.h"

namespace zek::test {

/// The result of a fetch.
struct Fetched {
  bool done = false;
  std::vector<std::string> lines;
  std::string value;
};

inline Fetched Fetch(ZV_Proc& proc, Catalogue catalogue) {
  const auto content = proc.catalogues.GetCatalogue(proc.selection.Id(catalogue));
  if (!content) return {false, {}, "."};
  return {true, content->lines, content->dfv.value_or(".")};
}

/// Sends a catalogue, as an editor or a command does.
inline bool Send(ZV_Proc& proc, Catalogue catalogue, std::vector<std::string> lines,
                 std::string value = ".") {
  return proc.catalogues
      .SaveCatalogue(proc.selection.Id(catalogue), {std::move(lines), std::move(value), {}})
      .Done();
}

/// A cancel that no wait has received yet.
inline bool CancelIsPending(const ZV_Proc& proc) { return proc.waits.CanCancel(); }

}  // namespace zek::test
