#include "catalogue/LastRead.h"

#include <utility>

namespace zek {
namespace {

bool HasValue(const ZV_Proc& proc, Catalogue catalogue) {
  return catalogue != Catalogue::Sdc && HasNamedControls(proc);
}

void Remember(ZV_Proc& proc, Catalogue catalogue, LinesFrom from, std::vector<std::string> lines,
              std::optional<std::string> dfv) {
  if (!HasValue(proc, catalogue)) dfv.reset();
  proc.transfer.Last = {from, proc.selection.CurrentObject, LocalFileOf(proc.selection, catalogue),
                        std::move(lines), std::move(dfv)};
}

}  // namespace

std::optional<std::string> DfvToSend(const ZV_Proc& proc, Catalogue catalogue) {
  if (!HasValue(proc, catalogue)) return std::nullopt;
  if (catalogue == Catalogue::Ovc && !proc.transfer.DfvKnown) return std::nullopt;
  return proc.transfer.CatalogueDfv;
}

void RememberRead(ZV_Proc& proc, Catalogue catalogue) {
  const Transfer& read = proc.transfer;
  const auto dfv = read.DfvKnown ? std::optional(read.CatalogueDfv) : std::nullopt;
  Remember(proc, catalogue, read.From, read.CatalogueLines, dfv);
}

void RememberSent(ZV_Proc& proc, Catalogue catalogue) {
  Remember(proc, catalogue, LinesFrom::Controller, proc.transfer.CatalogueLines,
           DfvToSend(proc, catalogue));
}

void RememberLocalCopy(ZV_Proc& proc, Catalogue catalogue) {
  const FileContent file = proc.outside.files.Read(
      LocalPath(proc.settings.ProgramPath, LocalFileOf(proc.selection, catalogue)));
  LocalCopy copy = ReadLocalCopy(file.bytes);
  proc.transfer.Last = {};
  if (file.error || copy.tooLong) return;
  Remember(proc, catalogue, LinesFrom::LocalCopy, std::move(copy.lines), std::move(copy.dfv));
}

LastRead LastReadOf(const ZV_Proc& proc, Catalogue catalogue) {
  const LastRead& last = proc.transfer.Last;
  const bool same = last.Topic == proc.selection.CurrentObject &&
                    last.LocalFile == LocalFileOf(proc.selection, catalogue);
  return same ? last : LastRead();
}

}  // namespace zek
