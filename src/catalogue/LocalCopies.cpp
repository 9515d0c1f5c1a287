#include "catalogue/Catalogue.h"
#include "lang/Message.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {

const std::string& LocalFileOf(const Selection& selection, Catalogue catalogue) {
  switch (catalogue) {
    case Catalogue::Sdc:
      return selection.LocalFiles.SDC;
    case Catalogue::Wdc:
      return selection.LocalFiles.WDC;
    case Catalogue::Ovc:
      break;
  }
  return selection.LocalFiles.OVC;
}

bool HasNamedControls(const ZV_Proc& proc) {
  return proc.topics[proc.selection.CurrentObject].TopicType == Generation::Zek2;
}

std::string AttemptText(const ZV_Proc& proc, std::int32_t number, int attempt) {
  if (attempt == 1) return proc.Text(number);
  return proc.Text(number) + " (" + Message(proc.Text(text::kAttempt), {std::to_string(attempt)}) +
         ")";
}

namespace {
std::string PathOf(const ZV_Proc& proc, Catalogue catalogue) {
  return LocalPath(proc.settings.ProgramPath, LocalFileOf(proc.selection, catalogue));
}
}  // namespace

bool HasLocalCopy(const ZV_Proc& proc, Catalogue catalogue) {
  return !LocalFileOf(proc.selection, catalogue).empty() &&
         proc.outside.files.Exists(PathOf(proc, catalogue));
}

bool LoadLocalCopy(ZV_Proc& proc, Catalogue catalogue) {
  const FileContent file = proc.outside.files.Read(PathOf(proc, catalogue));
  if (file.error) {
    proc.transfer.CatalogueLines.clear();
    proc.outside.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *file.error));
    return false;
  }
  return TakeLocalCopy(proc, file.bytes, LocalFileOf(proc.selection, catalogue));
}

bool TakeLocalCopy(ZV_Proc& proc, std::string_view file, const std::string& name) {
  LocalCopy copy = ReadLocalCopy(file);
  proc.transfer.CatalogueLines.clear();
  if (copy.tooLong) {
    proc.outside.prompts.Show(
        Icon::Exclamation,
        Message(proc.Text(text::kLocalCopyTooLong), {name, std::to_string(kMaxCatalogueLines)}));
    return false;
  }
  proc.transfer.CatalogueLines = std::move(copy.lines);
  proc.transfer.From = LinesFrom::LocalCopy;
  proc.transfer.LinesDropped = 0;
  proc.transfer.DfvKnown = copy.dfv.has_value();
  proc.transfer.CatalogueDfv = copy.dfv.value_or(std::string(1, '.'));
  return true;
}

History HistoryOf(ZV_Proc& proc, Catalogue catalogue) {
  return {proc.outside.files, proc.settings.ProgramPath, LocalFileOf(proc.selection, catalogue),
          proc.settings.HistoryCount};
}

namespace {

// Has `change` replace or erase the local copy, after what stands there was kept; when it can't be
// kept, it stays.
template <class ChangeFile>
bool ChangeCopy(ZV_Proc& proc, Catalogue catalogue, std::optional<std::string_view> next,
                ChangeFile change) {
  History history = HistoryOf(proc, catalogue);
  std::optional<FileError> error = history.Keep(next, proc.outside.now());
  if (error) {
    proc.outside.prompts.Show(Icon::Exclamation, proc.Text(text::kHistoryFailed) + "\r\n\r\n" +
                                                     FileMessage(proc.texts, *error));
    return false;
  }
  error = change(PathOf(proc, catalogue));
  if (error) {
    proc.outside.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *error));
    return false;
  }
  history.Prune();
  return true;
}

bool Replace(ZV_Proc& proc, Catalogue catalogue, std::string_view file) {
  return ChangeCopy(proc, catalogue, file,
                    [&](const std::string& path) { return proc.outside.files.Write(path, file); });
}

}  // namespace

bool StoreLocalCopy(ZV_Proc& proc, Catalogue catalogue, const std::optional<std::string>& dfv) {
  return Replace(proc, catalogue, BuildLocalCopy(proc.transfer.CatalogueLines, dfv));
}

bool RestoreLocalCopy(ZV_Proc& proc, Catalogue catalogue, const KeptCopy& kept) {
  const FileContent file = proc.outside.files.Read(kept.path);
  if (!file.error) return Replace(proc, catalogue, file.bytes);
  proc.outside.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *file.error));
  return false;
}

std::optional<std::vector<std::string>> CompareWithKept(const ZV_Proc& proc, Catalogue catalogue,
                                                        const KeptCopy& kept) {
  const FileContent before = proc.outside.files.Read(kept.path);
  const FileContent now = proc.outside.files.Read(PathOf(proc, catalogue));
  const bool erased = now.error && now.error->reason == FileError::Reason::Missing;
  if (!before.error && (!now.error || erased)) return DifferencesOf(before.bytes, now.bytes);
  const FileError& error = before.error ? *before.error : *now.error;
  proc.outside.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, error));
  return std::nullopt;
}

bool EraseLocalCopy(ZV_Proc& proc, Catalogue catalogue) {
  if (LocalFileOf(proc.selection, catalogue).empty()) return true;
  return ChangeCopy(proc, catalogue, std::nullopt,
                    [&](const std::string& path) { return proc.outside.files.Remove(path); });
}

}  // namespace zek
