#pragma once

#include <functional>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "app/ZV_Proc.h"
#include "findings/Findings.h"

namespace zek {

/// Reads the catalogues of time controls, each catalogue only once.
class ControlReader {
 public:
  struct Source {
    std::function<std::optional<CatalogueContent>(const CatalogueId&)> read;
    bool missingIsEmpty = false;  // a catalogue that can't be read
    /// Called once for each line that could not be read.
    std::function<void(const CatalogueId&, const std::string& line)> unread =
        [](const CatalogueId&, const std::string&) {};
  };

  ControlReader(ZV_Proc& proc, Source source) : proc_(proc), source_(std::move(source)) {}

  /// Selects a time control and reads it. Returns nothing if a catalogue could not be read.
  std::optional<ControlTables> Read(std::size_t node);

  /// False if a line could not be read or a catalogue is missing.
  bool Complete() const { return complete_; }

 private:
  const CatalogueContent* Content(const CatalogueId& id, bool& known);
  void NameUnread(const CatalogueId& id, const std::vector<std::string>& lines);

  ZV_Proc& proc_;
  Source source_;
  std::map<std::string, std::optional<CatalogueContent>> contents_;  // by local file
  std::set<std::string> named_;                                      // catalogue and line
  bool complete_ = true;
};

}  // namespace zek
