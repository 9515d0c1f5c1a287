#pragma once

#include <map>
#include <string>
#include <vector>

#include "app/ControlReader.h"
#include "report/Report.h"

namespace zek {

/// Collects what a report tells of time controls.
class ReportCollector {
 public:
  /// The report's week is that of `today`.
  ReportCollector(ZV_Proc& proc, ControlReader::Source source, DayNumber today);

  /// Selects and reads a control. Returns false if a catalogue could not be read.
  bool Add(std::size_t node);

  /// The page, with the calendar of `year`.
  std::string Page(int year) const;

  bool IsEmpty() const { return controls_.empty(); }
  /// False if something could not be read.
  bool Complete() const { return reader_.Complete(); }

 private:
  ControlReader::Source Noting(ControlReader::Source source);
  std::vector<std::string> Reads(const KnownCatalogues& known) const;
  void AddRead(std::vector<std::string>& reads, Catalogue catalogue, bool known) const;

  ZV_Proc& proc_;
  FindingContext context_;
  std::map<std::string, std::string> fetched_;  // local file, when its controller was read for this
  ControlReader reader_;
  std::vector<ReportedControl> controls_;
};

}  // namespace zek
