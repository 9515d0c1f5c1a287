#include "catalogue/LocalCopies.h"

#include "catalogue/CopyFormat.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

CatalogueContent ContentOf(const CatalogueId& id, LocalCopy copy) {
  CatalogueContent content;
  content.lines = std::move(copy.lines);
  if (id.IsOfControl()) content.dfv = std::move(copy.dfv);
  // ".": the listing had no value, and sending one would change the controller's.
  if (id.catalogue == Catalogue::Ovc && content.dfv == ".") content.dfv.reset();
  content.from = LinesFrom::LocalCopy;
  return content;
}

}  // namespace

std::string LocalCopies::PathOf(const CatalogueId& id) const {
  return LocalPath(settings_.ProgramPath, id.localFile);
}

bool LocalCopies::Exists(const CatalogueId& id) const {
  return !id.localFile.empty() && files_.Exists(PathOf(id));
}

std::optional<CatalogueContent> LocalCopies::Load(const CatalogueId& id) const {
  const FileContent file = files_.Read(PathOf(id));
  if (!file.error) return Parse(id, file.bytes, id.localFile);
  messages_.Tell(*file.error);
  return std::nullopt;
}

std::optional<CatalogueContent> LocalCopies::Parse(const CatalogueId& id, std::string_view file,
                                                   const std::string& name) const {
  LocalCopy copy = ReadLocalCopy(file);
  if (!copy.tooLong) return ContentOf(id, std::move(copy));
  messages_.Tell(Icon::Exclamation, text::kLocalCopyTooLong,
                 {name, std::to_string(kMaxCatalogueLines)});
  return std::nullopt;
}

CatalogueContent LocalCopies::Peek(const CatalogueId& id) const {
  const FileContent file = files_.Read(PathOf(id));
  LocalCopy copy = ReadLocalCopy(file.bytes);
  if (file.error || copy.tooLong) return {};
  return ContentOf(id, std::move(copy));
}

History LocalCopies::HistoryOf(const CatalogueId& id) const {
  return {files_, settings_.ProgramPath, id.localFile, settings_.HistoryCount};
}

// Keeps the copy in the history, then calls `change` to replace or erase it. A copy that can't be
// kept is not changed.
template <class ChangeFile>
bool LocalCopies::Change(const CatalogueId& id, std::optional<std::string_view> next,
                         ChangeFile change) {
  History history = HistoryOf(id);
  if (const auto error = history.Keep(next, now_())) {
    messages_.prompts.Show(Icon::Exclamation, messages_.Text(text::kHistoryFailed) + "\r\n\r\n" +
                                                  FileMessage(messages_.texts, *error));
    return false;
  }
  if (const std::optional<FileError> error = change(PathOf(id))) {
    messages_.Tell(*error);
    return false;
  }
  history.Prune();
  return true;
}

bool LocalCopies::Replace(const CatalogueId& id, std::string_view file) {
  return Change(id, file, [&](const std::string& path) { return files_.Write(path, file); });
}

bool LocalCopies::Store(const CatalogueId& id, const std::vector<std::string>& lines,
                        const std::optional<std::string>& dfv) {
  return Replace(id, BuildLocalCopy(lines, dfv));
}

bool LocalCopies::Erase(const CatalogueId& id) {
  if (id.localFile.empty()) return true;
  return Change(id, std::nullopt, [&](const std::string& path) { return files_.Remove(path); });
}

bool LocalCopies::Restore(const CatalogueId& id, const KeptCopy& kept) {
  const FileContent file = files_.Read(kept.path);
  if (!file.error) return Replace(id, file.bytes);
  messages_.Tell(*file.error);
  return false;
}

std::optional<std::vector<std::string>> LocalCopies::CompareWith(const CatalogueId& id,
                                                                 const KeptCopy& kept) const {
  const FileContent before = files_.Read(kept.path);
  const FileContent now = files_.Read(PathOf(id));
  const bool erased = now.error && now.error->reason == FileError::Reason::Missing;
  if (!before.error && (!now.error || erased)) return DifferencesOf(before.bytes, now.bytes);
  messages_.Tell(before.error ? *before.error : *now.error);
  return std::nullopt;
}

}  // namespace zek
