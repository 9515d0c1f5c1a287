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
  return proc.topics[proc.selection.CurrentObject].TopicType != 1;
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

bool StoreLocalCopy(ZV_Proc& proc, Catalogue catalogue, const std::optional<std::string>& dfv) {
  const auto error = proc.outside.files.Write(PathOf(proc, catalogue),
                                              BuildLocalCopy(proc.transfer.CatalogueLines, dfv));
  if (error) proc.outside.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *error));
  return !error;
}

bool EraseLocalCopy(ZV_Proc& proc, Catalogue catalogue) {
  if (LocalFileOf(proc.selection, catalogue).empty()) return true;
  const auto error = proc.outside.files.Remove(PathOf(proc, catalogue));
  if (error) proc.outside.prompts.Show(Icon::Exclamation, FileMessage(proc.texts, *error));
  return !error;
}

}  // namespace zek
