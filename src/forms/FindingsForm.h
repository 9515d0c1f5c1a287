#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <wx/window.h>

#include "app/ZV_Proc.h"
#include "editors/FindingPlaces.h"

namespace zek {

/// A row of the list of findings.
struct FindingRow {
  std::string node;  // "" in an editor
  ShownFinding finding;
};

/// What a list of findings shows, while it is searched.
struct FindingSource {
  std::function<bool()> step;                                    // true if more remains
  std::function<std::vector<FindingRow>(std::size_t)> rowsFrom;  // those found, from a place on
  std::function<std::string()> remark;                           // the line above the list
  std::function<void()> stop;  // ends the search; empty where it can't be ended
};

/// Shows a list of findings until it is closed, and searches meanwhile. `marked` is the row to mark
/// first. Returns the row that the user wants to go to. Modal.
std::optional<std::size_t> ShowFindings(wxWindow* parent, ZV_Proc& proc, const std::string& title,
                                        const FindingSource& source, std::size_t marked = 0);

}  // namespace zek
