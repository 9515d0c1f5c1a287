#pragma once

#include <cstddef>
#include <vector>

#include "app/KnownTables.h"
#include "editors/FindingPlaces.h"

namespace zek {

/// A finding and the node of the object tree that it is in.
struct PlantFinding {
  std::size_t node = 0;
  ShownFinding shown;
};

/// Searches the local copies of the whole plant, step by step.
class PlantFindings {
 public:
  /// `proc` must outlive this; its tree must not change.
  explicit PlantFindings(const ZV_Proc& proc);

  /// Looks at a part of what remains; returns true if there is more.
  bool Step();
  void Stop();

  const std::vector<PlantFinding>& Found() const { return found_; }
  std::size_t Controls() const { return all_; }
  std::size_t Judged() const { return judged_; }
  /// Those of the judged controls that lack a local copy. Only what needs none of the missing ones
  /// is judged.
  std::size_t WithoutCopies() const { return withoutCopies_; }

 private:
  // A catalogue of a node to be searched.
  struct Job {
    std::size_t node = 0;
    Catalogue catalogue = Catalogue::Wdc;
  };

  void Begin(const Job& job);
  void ReadControl(std::size_t node);
  void Take();

  const ZV_Proc& proc_;
  FindingContext context_;
  std::vector<Job> jobs_;  // of the catalogues of a node, first weekdays; the calendar last
  std::size_t next_ = 0;
  std::size_t taken_ = 0;              // of the findings of the search
  std::vector<KnownTables> controls_;  // of the present controller
  SpecialDayNames names_;
  FindingSearch search_;
  std::vector<PlantFinding> found_;
  std::size_t all_ = 0;
  std::size_t judged_ = 0;
  std::size_t withoutCopies_ = 0;
};

}  // namespace zek
