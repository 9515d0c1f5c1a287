#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "app/KnownTables.h"
#include "editors/FindingPlaces.h"

namespace zek {

/// What is found in the catalogue that an editor has opened, together with what the local copies
/// tell of the others.
class OpenedFindings {
 public:
  /// `proc` must outlive this; the node is the selected one.
  OpenedFindings(const ZV_Proc& proc, Catalogue catalogue, const CatalogueContent& content);

  /// Begins anew with the table as it is edited, unless nothing has changed. `entered` is what only
  /// the editor knows.
  void Search(const EditedTable& table, std::vector<Finding> entered = {});

  /// Looks at a part of what remains; returns true if there is more.
  bool Step();

  bool Complete() const { return search_.Complete(); }
  std::size_t Count() const { return search_.Found().size(); }
  /// Those from a place on.
  std::vector<ShownFinding> Shown(std::size_t from = 0) const;

  /// What is not judged, because a local copy is missing; "" if everything is.
  std::string Missing() const;

  /// Returns in words what the edited table has and the one that was read had not. What would take
  /// too long to prove is left out.
  std::vector<std::string> NewOnes();

 private:
  FindingSearch SearchOf(const KnownTables& known) const;
  std::vector<Finding> WithoutRows(const std::vector<DatedType>& calendar) const;
  FindingView ViewOf(const KnownTables& known) const;

  const ZV_Proc& proc_;
  Catalogue catalogue_;
  FindingContext context_;
  SpecialDayNames names_;
  KnownTables read_;
  KnownTables edited_;
  std::vector<KnownTables> controls_;  // of a calendar: all of its controller
  std::vector<Finding> entered_;
  FindingSearch search_;  // of the edited table
  bool begun_ = false;
  EditedTable table_;
};

}  // namespace zek
