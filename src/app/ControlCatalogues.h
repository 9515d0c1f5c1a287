#pragma once

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "app/ControlTablesOf.h"
#include "forecast/Rule.h"
#include "forecast/Schedule.h"

namespace zek {

/// The three catalogues of the selected time control, for what applies to it.
class ControlCatalogues {
 public:
  explicit ControlCatalogues(ZV_Proc& proc) : proc_(proc), of_(proc.selection) {}

  /// Uses a content that was read before.
  void Use(Catalogue catalogue, CatalogueContent content) {
    Content(catalogue) = std::move(content);
  }

  /// Reads the catalogues that are not there yet, as the settings say. Returns false, after a
  /// message, if that failed. In local mode a copy that is missing counts as empty.
  bool Read();

  /// What they say together; call it after `Read`.
  Schedule Together() const { return Tables().schedule; }

  /// What the user should know: copies that are missing, lines that could not be read.
  std::vector<std::string> Remarks() const;

  /// The catalogues whose content is a copy that was not sent, "Veckodagar, Undantag". `edited` is
  /// one with changes in an editor.
  std::string Unsent(std::optional<Catalogue> edited) const;

  /// The time control's name: "SKOLA/AHU1".
  std::string Node() const { return of_.Id(Catalogue::Wdc).Node(); }

 private:
  ControlTables Tables() const;
  bool Read(Catalogue catalogue);
  std::optional<CatalogueContent>& Content(Catalogue catalogue) {
    return contents_.at(static_cast<std::size_t>(catalogue));
  }
  const std::optional<CatalogueContent>& Content(Catalogue catalogue) const {
    return contents_.at(static_cast<std::size_t>(catalogue));
  }

  ZV_Proc& proc_;
  Selection of_;
  std::array<std::optional<CatalogueContent>, kCatalogueKinds.size()> contents_;
  std::vector<Catalogue> missing_;
};

/// The rule's switches as they were chosen for an object: section "ForecastRule", the object's name
/// as the key.
Rule RuleOf(const Profile& profile, const std::string& object);
std::optional<FileError> KeepRule(Profile& profile, const std::string& object, const Rule& rule);

}  // namespace zek
