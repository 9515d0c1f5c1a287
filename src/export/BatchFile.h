#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/CatalogueKind.h"
#include "system/Files.h"
#include "system/LocalTime.h"

namespace zek {

/// An export file of one catalogue kind: "Batch\WDC", "SDC" or "OVC" and the time of its opening,
/// semicolon-separated, lines end in CR LF.
///
///     Batch påbörjad 26-11-21 08:30:00/Objekt;DUC;...    with `IncludeBatchHeader`
///     Skolan;DUC 1;...                                   records
///     Batch avslutad 26-11-21 08:45:12                   with it; or "Batch stoppad " in any case
///
/// The records of a node that was complete when the export was cancelled follow behind that.
class BatchFile {
 public:
  explicit BatchFile(Catalogue kind) : kind_(kind) {}

  /// Creates the file in `directory`, and that when it is missing. A failure is kept.
  void Open(Files& files, const std::string& directory, const LocalTime& now);

  /// Puts the file in its place. A failure is kept, and then nothing of it is there.
  void Close();

  void WriteHeader(const LocalTime& now);
  void WriteFinished(const LocalTime& now);
  void WriteStopped(const LocalTime& now);
  /// Adds the records of one node, all of them or none.
  std::optional<FileError> WriteRecords(const std::vector<std::string>& records);

  Catalogue Kind() const { return kind_; }
  bool IsOpen() const { return file_ != nullptr; }
  /// It was closed and is whole.
  bool IsInPlace() const { return inPlace_; }
  /// Where it is or was to be.
  const std::string& Path() const { return path_; }
  /// The first thing that went wrong with the file as a whole.
  const std::optional<FileError>& Error() const { return error_; }

 private:
  void WriteLine(std::string_view line);

  Catalogue kind_;
  std::unique_ptr<OutputFile> file_;
  std::string path_;
  std::optional<FileError> error_;
  bool inPlace_ = false;
};

/// "YYMMDD_HHNNSS", as it stands in the names of the files.
std::string FileStamp(const LocalTime& now);

}  // namespace zek
