#include "catalogue/Catalogues.h"

#include "catalogue/CatalogueFetch.h"
#include "catalogue/CommandText.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {

std::optional<CatalogueContent> Catalogues::GetCatalogue(const CatalogueId& id, CopyUse use) {
  // From inside a wait of another transfer, whose lines it would replace.
  if (p_.exchange.status.Busy > 0) return std::nullopt;
  std::optional<CatalogueContent> content = GetOrLoad(id, use);
  if (content) Remember(id, *content);
  return content;
}

std::optional<CatalogueContent> Catalogues::GetOrLoad(const CatalogueId& id, CopyUse use) {
  if (id.localFile.empty()) {
    p_.messages.Tell(Icon::Information, text::kNoSuchCatalogue);
    return std::nullopt;
  }
  if (p_.copies.Exists(id) && MayUseCopy(id, use)) return p_.copies.Load(id);
  if (!p_.settings.LocalMode) return FetchAndStore(id);
  RefuseLocalMode(id);
  return std::nullopt;
}

bool Catalogues::MayUseCopy(const CatalogueId& id, CopyUse use) const {
  if (use != CopyUse::AsSet) return use == CopyUse::Take;
  if (p_.settings.AlwaysUseDSS) return false;
  if (p_.settings.AlwaysUseLocal) return true;
  return p_.messages.prompts.AskYesNo(
      Icon::Question, p_.messages.Text(text::kUseLocalCopy) + " (" + UpperCase(id.localFile) + ").",
      p_.messages.Text(text::kUseLocalCopyTitle));
}

void Catalogues::RefuseLocalMode(const CatalogueId& id) const {
  if (p_.copies.Exists(id)) {
    p_.messages.Tell(Icon::Information, text::kLocalCopyDeclined);
  } else {
    p_.messages.prompts.Show(Icon::Information, p_.messages.Text(text::kNoLocalCopy) + "\r\n\r\n" +
                                                    p_.messages.Text(text::kNoLocalCopyAdvice));
  }
}

std::optional<CatalogueContent> Catalogues::FetchAndStore(const CatalogueId& id) {
  const std::optional<FetchDelays> delays = ReadFetchDelays(p_.numbers);
  if (!delays || !CheckNameSendable(id, p_)) return std::nullopt;
  const CountedUp busy(p_.exchange.status, &StatusPanels::Busy);
  const Fetched fetched = FetchCatalogue(id, p_, *delays, text::kFetching);
  if (fetched.outcome == FetchOutcome::Failed) {
    p_.messages.Tell(Icon::Exclamation, text::kNoAnswer);
  }
  if (fetched.outcome != FetchOutcome::Complete) return std::nullopt;
  const CatalogueContent& content = fetched.content;
  if (!p_.copies.Store(id, content.lines, content.dfv)) return std::nullopt;
  if (content.linesDropped > 0) {
    p_.messages.Tell(Icon::Exclamation, text::kListingTooLong,
                     {std::to_string(kMaxCatalogueLines), std::to_string(content.linesDropped)});
  }
  return content;
}

CatalogueContent Catalogues::LastKnown(const CatalogueId& id) const {
  const bool same = last_.id.object == id.object && last_.id.localFile == id.localFile;
  return same ? last_.content : CatalogueContent();
}

}  // namespace zek
