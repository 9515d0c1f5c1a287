#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"
#include "catalogue/CatalogueStore.h"
#include "settings/Settings.h"
#include "system/Files.h"
#include "system/LocalTime.h"

namespace zek {

/// What a controller does with the old lines when a catalogue is sent, as far as it was seen.
enum class SeenToDo {
  Unread,               // the record can't be read now
  Nothing,              // not seen yet
  ReplacesByNumber,     // a line stays until a line with its number is sent
  ReplacesByControl,    // the lines of the control that is sent are replaced
  ReplacesByCatalogue,  // the whole catalogue is replaced
};

/// What the program knows about the controllers and has done to them. All of it is on the disk, in
/// the program directory:
/// - "Known" has each catalogue as it was last read from its controller or sent to it,
/// - "Unfinished" has shared catalogues as they were before a write, until the controller was seen
///   to have all lines again,
/// - "Before" has the lines of each control before its last sending, and "Begun" those before a
///   sending that failed,
/// - "Known\CONTROLLERS.TXT" has what each controller was seen to do,
/// - "SENT.TXT" has a line for every write: time, user, node, catalogue, lines, outcome.
/// A failure is returned where something could be lost; elsewhere the record is only missing.
class ControllerRecords {
 public:
  ControllerRecords(Files& files, const Settings& settings, Clock now, std::string user)
      : files_(files), settings_(settings), now_(std::move(now)), user_(std::move(user)) {}

  /// The catalogue as it was last read from the controller or sent to it.
  std::optional<StoredCatalogue> Known(const CatalogueId& id) const { return KnownOf().Find(id); }
  void RememberKnown(const CatalogueId& id, const CatalogueContent& content);
  void ForgetKnown(const CatalogueId& id);

  /// The lines that the controller has to have again before a write is finished. The lines of the
  /// saved control are the old ones, and after the write was sent the new ones.
  std::optional<StoredCatalogue> Unfinished(const CatalogueId& id) const {
    return UnfinishedOf().Find(id);
  }
  /// Lines of an earlier unfinished write that `lines` lack stay unfinished, too.
  std::optional<FileError> BeginWrite(const CatalogueId& id, std::vector<std::string> lines);
  void SentWrite(const CatalogueId& id, std::vector<std::string> lines);
  /// Does nothing while one of the lines is missing in `there`. Lines with "*" don't count.
  void EndWrite(const CatalogueId& id, std::span<const std::string> there);

  /// The control's lines before its last sending; after sendings that failed, before the first of
  /// these. Empty if they were not known.
  std::optional<StoredCatalogue> BeforeSending(const CatalogueId& id) const;
  /// `now` is what the controller has. Returns false if an earlier sending failed; what was before
  /// that one stays.
  bool BeginSending(const CatalogueId& id, const CatalogueContent& now);
  /// What the controller had before sendings that failed. It can have parts of both now.
  std::optional<StoredCatalogue> FailedSending(const CatalogueId& id) const;
  /// True if a sending of any control of the catalogue failed.
  bool AnySendingFailed(const CatalogueId& id) const;
  void EndSending(const CatalogueId& id);
  /// For a sending that did not begin.
  void ForgetSending(const CatalogueId& id);

  SeenToDo SeenAt(const CatalogueId& id) const;
  /// The file with what was seen.
  std::string SeenPath() const;
  void RememberSeen(const CatalogueId& id, SeenToDo seen);

  void Journal(const CatalogueId& id, std::size_t lines, std::string_view outcome);

  LocalTime Now() const { return now_(); }

 private:
  CatalogueStore KnownOf() const { return {files_, Folder("Known")}; }
  CatalogueStore UnfinishedOf() const { return {files_, Folder("Unfinished")}; }
  CatalogueStore BeforeOf() const { return {files_, Folder("Before")}; }
  CatalogueStore BegunOf() const { return {files_, Folder("Begun")}; }
  std::string Folder(std::string_view name) const;

  Files& files_;
  const Settings& settings_;
  Clock now_;
  std::string user_;  // of the computer, windows-1252
};

/// True when both have the same lines but for those with "*", whatever their order, and the same
/// value if both have one.
bool HaveSameLines(const CatalogueContent& one, const CatalogueContent& other);

/// True when `one` has a line, or a value, that `other` has not; lines with "*" don't count.
bool HasMoreThan(const CatalogueContent& one, const CatalogueContent& other);

}  // namespace zek
