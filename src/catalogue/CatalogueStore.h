#pragma once

#include <optional>
#include <string>

#include "catalogue/Catalogue.h"
#include "system/Files.h"
#include "system/LocalTime.h"

namespace zek {

/// A catalogue as its controller had it at a certain time.
struct StoredCatalogue {
  std::string time;  // "2026-11-22 08:30:00"
  std::string node;  // "TOPIC/CONTROL" or "TOPIC"
  CatalogueContent content;
};

/// Keeps catalogues in one folder, a file for each local copy and with its name. A file is a local
/// copy after a first line with the time, the node and a checksum of the rest (FNV-1a). A file that
/// something else has changed is not used.
class CatalogueStore {
 public:
  /// `folder` ends with a separator; it is created when it is needed.
  CatalogueStore(Files& files, std::string folder) : files_(files), folder_(std::move(folder)) {}

  std::optional<FileError> Keep(const CatalogueId& id, const CatalogueContent& content,
                                const LocalTime& now);

  /// Returns nothing if there is no usable file.
  std::optional<StoredCatalogue> Find(const CatalogueId& id) const;

  std::optional<FileError> Drop(const CatalogueId& id);

 private:
  std::string PathOf(const CatalogueId& id) const;

  Files& files_;
  std::string folder_;
};

}  // namespace zek
