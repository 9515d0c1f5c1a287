#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "catalogue/Catalogue.h"
#include "lang/LanguageTexts.h"
#include "settings/Settings.h"
#include "system/Files.h"
#include "system/LocalTime.h"

namespace zek {

/// Who runs this program, windows-1252.
struct RunBy {
  std::string user;
  std::string computer;
  std::string process;  // its number
};

/// Tells the programs that share a data folder which catalogues each of them has open for editing.
/// It only tells: nothing is ever refused because of it, and a folder that can't be written only
/// means that the others are not told.
///
/// A mark is a file in the folder "Open": a line that says what is open, by whom and since when,
/// then a line with the time for each refresh. Its program holds a lock on it. A mark is stale
/// - at once, if it is of this computer and not locked: its program has ended,
/// - if it was seen unchanged for `kSilentSeconds` by this program's own clock, since the clocks of
///   two computers can differ,
/// - if its last time is more than a day away from the present one.
/// Whoever finds a stale mark removes it. A program that still runs writes its own again.
class OpenMarks {
 public:
  static constexpr int kSilentSeconds = 5 * 60;
  /// Call `Refresh` this often; 4 can be missed.
  static constexpr int kRefreshSeconds = 60;

  OpenMarks(Files& files, const Settings& settings, const LanguageTexts& texts, Clock now,
            RunBy self)
      : files_(files),
        settings_(settings),
        texts_(texts),
        now_(std::move(now)),
        self_(std::move(self)) {}

  /// Write, refresh and remove the mark of a catalogue that is edited here.
  void Open(const CatalogueId& id);
  void Refresh(const CatalogueId& id);
  void Close(const CatalogueId& id);

  /// Says who else has the catalogue open: "öppnad av KALLE sedan 14:02"; "" if nobody has. Names
  /// the other's control if it is another one of a catalogue that controls share.
  std::string OthersAt(const CatalogueId& id);

 private:
  struct Own {
    std::string path;
    std::string text;  // the first line
    std::size_t refreshed = 0;
    std::unique_ptr<FileLock> lock;
  };
  struct Seen {
    std::size_t size = 0;  // bytes
    LocalTime since;       // when the file was first seen with that size
  };
  struct Mark;

  std::string Folder() const;
  bool Write(Own& own);
  bool IsOwn(const std::string& path) const;
  bool IsStale(const std::string& path, const Mark& mark, std::size_t size);
  std::string Words(const Mark& mark, const CatalogueId& id) const;

  Files& files_;
  const Settings& settings_;
  const LanguageTexts& texts_;
  Clock now_;
  RunBy self_;
  std::map<std::string, Own> own_;    // by local copy
  std::map<std::string, Seen> seen_;  // by path
};

}  // namespace zek
