#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/Catalogue.h"
#include "system/Files.h"
#include "system/LocalTime.h"

namespace zek {

/// An export file of one catalogue kind: "Batch\WDC", "SDC" or "OVC" and the time of its creation.
/// Fields are separated by semicolons, lines end in CR LF.
///
///     Batch påbörjad 26-11-21 08:30:00/Objekt;DUC;...    with `IncludeBatchHeader`
///     Skolan;DUC 1;...                                   records
///     Batch avslutad 26-11-21 08:45:12                   with `IncludeBatchHeader`
///
/// A cancelled export always writes "Batch stoppad " and the time instead of the last line. Records
/// of a node that was already complete when the export was cancelled follow that line.
class BatchFile {
 public:
  explicit BatchFile(Catalogue kind) : kind_(kind) {}

  /// Creates the file, and `directory` if it is missing. `Error` keeps a failure.
  void Open(Files& files, const std::string& directory, const LocalTime& now);

  /// Commits the file. On failure `Error` keeps the error and `IsInPlace` stays false.
  void Close();

  void WriteHeader(const LocalTime& now);
  void WriteFinished(const LocalTime& now);
  void WriteStopped(const LocalTime& now);
  /// Appends the records of one node: all or, on failure, none.
  std::optional<FileError> WriteRecords(const std::vector<std::string>& records);

  Catalogue Kind() const { return kind_; }
  bool IsOpen() const { return file_ != nullptr; }
  /// True if the file was closed and is complete.
  bool IsInPlace() const { return inPlace_; }
  /// The path of the file, even if it could not be created.
  const std::string& Path() const { return path_; }
  /// The first error that concerns the whole file.
  const std::optional<FileError>& Error() const { return error_; }

 private:
  void WriteLine(std::string_view line);

  Catalogue kind_;
  std::unique_ptr<OutputFile> file_;
  std::string path_;
  std::optional<FileError> error_;
  bool inPlace_ = false;
};

/// Returns "YYMMDD_HHNNSS", as used in file names.
std::string FileStamp(const LocalTime& now);

}  // namespace zek
