#include "catalogue/CatalogueStore.h"

#include "catalogue/CopyFormat.h"
#include "text/Checksum.h"
#include "text/Fields.h"
#include "text/Lines.h"

namespace zek {
namespace {

constexpr std::string_view kTab = "\t";

}  // namespace

std::string CatalogueStore::PathOf(const CatalogueId& id) const {
  return LocalPath(folder_, id.localFile);
}

std::optional<FileError> CatalogueStore::Keep(const CatalogueId& id,
                                              const CatalogueContent& content,
                                              const LocalTime& now) {
  if (auto error = files_.MakeDirectory(folder_)) return error;
  const std::string copy = BuildLocalCopy(content.lines, content.dfv);
  std::string file = "; " + DateAndTime(now);
  file.append(kTab).append(id.Node()).append(kTab).append(Checksum::Of(copy)).append("\r\n");
  return files_.Write(PathOf(id), file + copy);
}

std::optional<StoredCatalogue> CatalogueStore::Find(const CatalogueId& id) const {
  const FileContent file = files_.Read(PathOf(id));
  if (file.error) return std::nullopt;
  std::string_view copy = file.bytes;
  const std::string_view header = TakeLine(copy);
  if (!header.starts_with("; ") || GetField(header, 2, kTab) != Checksum::Of(copy)) {
    return std::nullopt;
  }
  LocalCopy read = ReadLocalCopy(copy);
  if (read.tooLong) return std::nullopt;
  const std::string_view time = GetField(header, 0, kTab).substr(2);
  return StoredCatalogue{std::string(time),
                         std::string(GetField(header, 1, kTab)),
                         {std::move(read.lines), std::move(read.dfv), LinesFrom::Controller, 0}};
}

std::optional<FileError> CatalogueStore::Drop(const CatalogueId& id) {
  if (!files_.Exists(PathOf(id))) return std::nullopt;
  return files_.Remove(PathOf(id));
}

}  // namespace zek
