#include "catalogue/SendQuestion.h"

#include "catalogue/ChangeTexts.h"
#include "catalogue/LastRead.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

std::vector<CatalogueChange> Changes(const ZV_Proc& proc, Catalogue catalogue,
                                     const LastRead& last) {
  std::vector<CatalogueChange> changes = ChangesBetween(
      {last.Lines, last.Dfv}, {proc.transfer.CatalogueLines, DfvToSend(proc, catalogue)},
      RulesOf(proc, catalogue));
  for (const std::string& lost : proc.transfer.NotInLines)
    changes.push_back({ChangeKind::Dropped, lost, {}, DropReason::StopTime});
  return changes;
}

std::int32_t AgainstText(LinesFrom from) {
  switch (from) {
    case LinesFrom::Controller:
      return text::kChangesFetched;
    case LinesFrom::LocalCopy:
      return text::kChangesLocal;
    case LinesFrom::Nowhere:
      break;
  }
  return text::kChangesUnknown;
}

}  // namespace

bool AskSend(ZV_Proc& proc, Catalogue catalogue, const std::string& question) {
  const LastRead last = LastReadOf(proc, catalogue);
  const ChangeTexts told = TextsOfChanges(Changes(proc, catalogue, last), proc.texts);
  const bool known = last.From != LinesFrom::Nowhere;
  std::string whole = question;
  if (known || !told.Details.empty()) {
    whole += "\r\n\r\n" + proc.Text(AgainstText(last.From)) + "\r\n" + told.Summary;
  }
  Prompts& prompts = proc.outside.prompts;
  const std::string title = proc.Text(text::kSendTitle);
  if (told.Details.empty()) return prompts.AskYesNo(Icon::Question, whole, title);
  return prompts.AskWithDetails(Icon::Question, whole, title,
                                {proc.Text(text::kDetailsLabel), told.Details});
}

}  // namespace zek
