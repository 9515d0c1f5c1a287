#include "catalogue/SendQuestion.h"

#include "catalogue/ChangeTexts.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

std::vector<CatalogueChange> Changes(const CatalogueContent& last, const CatalogueDraft& draft,
                                     const CatalogueRules& rules) {
  std::vector<CatalogueChange> changes = ChangesBetween(last, {draft.lines, draft.dfv}, rules);
  for (const std::string& lost : draft.notInLines)
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

bool AskSend(const std::string& question, const CatalogueContent& last, const CatalogueDraft& draft,
             const CatalogueRules& rules, const Messages& messages) {
  const ChangeTexts told = TextsOfChanges(Changes(last, draft, rules), messages.texts);
  std::string whole = question;
  if (last.from != LinesFrom::Nowhere || !told.Details.empty()) {
    whole += "\r\n\r\n" + messages.Text(AgainstText(last.from)) + "\r\n" + told.Summary;
  }
  const std::string title = messages.Text(text::kSendTitle);
  if (told.Details.empty()) return messages.prompts.AskYesNo(Icon::Question, whole, title);
  return messages.prompts.AskWithDetails(Icon::Question, whole, title,
                                         {messages.Text(text::kDetailsLabel), told.Details});
}

}  // namespace zek
