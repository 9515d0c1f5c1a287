#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/History.h"
#include "lang/Messages.h"
#include "settings/Settings.h"
#include "system/Files.h"
#include "system/LocalTime.h"

namespace zek {

/// The local copies of the catalogues, one file each in the program directory, and their history.
/// Failures are shown to the user.
class LocalCopies {
 public:
  LocalCopies(Files& files, const Settings& settings, const Messages& messages, Clock now)
      : files_(files), settings_(settings), messages_(messages), now_(std::move(now)) {}

  bool Exists(const CatalogueId& id) const;

  /// Returns nothing, after a message, if the copy can't be read or has too many lines.
  std::optional<CatalogueContent> Load(const CatalogueId& id) const;

  /// Parses a text like a local copy. The message about too many lines contains `name`.
  std::optional<CatalogueContent> Parse(const CatalogueId& id, std::string_view file,
                                        const std::string& name) const;

  /// Returns the content of the copy without any message; empty if it can't be used.
  CatalogueContent Peek(const CatalogueId& id) const;

  /// Keeps the old copy in the history and replaces it by `lines`, after a line with `dfv` if there
  /// is one. After a failure either the old copy remains, or the new one is in place but its name
  /// may not be on the disk yet.
  bool Store(const CatalogueId& id, const std::vector<std::string>& lines,
             const std::optional<std::string>& dfv);

  /// Keeps the copy in the history and deletes it.
  bool Erase(const CatalogueId& id);

  History HistoryOf(const CatalogueId& id) const;

  /// Replaces the copy by an earlier one. Nothing is sent.
  bool Restore(const CatalogueId& id, const KeptCopy& kept);

  /// Returns `DifferencesOf` an earlier copy and the present one, which may have been erased;
  /// nothing if one of them can't be read.
  std::optional<std::vector<std::string>> CompareWith(const CatalogueId& id,
                                                      const KeptCopy& kept) const;

 private:
  std::string PathOf(const CatalogueId& id) const;
  bool Replace(const CatalogueId& id, std::string_view file);
  template <class ChangeFile>
  bool Change(const CatalogueId& id, std::optional<std::string_view> next, ChangeFile change);

  Files& files_;
  const Settings& settings_;
  Messages messages_;
  Clock now_;
};

}  // namespace zek
