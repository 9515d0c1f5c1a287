#pragma once

#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "app/ZV_Proc.h"
#include "catalogue/Catalogue.h"
#include "plan/ChangeList.h"

namespace zek {

/// The lines of a time control before and after changes, or the reason why that can't be.
struct ChangedLines {
  std::vector<std::string> was;   // built from the table, so they mean what was listed
  std::vector<std::string> will;  // with numbers of their own
  std::string refusal;            // "" if the changes fit
};

/// Applies the changes that are about the catalogue of `id`, in their order, to the control's lines
/// in a listing. Refused are lines that could not be read, entries that have no place or that the
/// lines can't hold, and a table that can't be sent back without losing something.
ChangedLines ChangeLines(ZV_Proc& proc, const CatalogueId& id,
                         const std::vector<std::string>& listing,
                         std::span<const ListedChange> changes);

/// Returns lines with the numbers that they get in place of those in `listing`; nothing, after a
/// message, if that fails. A shared catalogue is numbered when it is saved.
std::optional<std::vector<std::string>> NumberedLike(ZV_Proc& proc, const CatalogueId& id,
                                                     const std::vector<std::string>& lines,
                                                     const std::vector<std::string>& listing);

/// The texts of the control's entries in a listing, one for each day: equal for equal meaning.
using EntrySet = std::multiset<std::string>;
EntrySet EntriesIn(const ZV_Proc& proc, const CatalogueId& id,
                   const std::vector<std::string>& listing);

/// Returns the entries of `some` that `others` lacks.
EntrySet Without(const EntrySet& some, const EntrySet& others);

}  // namespace zek
