#include "catalogue/Catalogues.h"

#include <utility>

#include "catalogue/CatalogueEntries.h"
#include "catalogue/CatalogueFetch.h"
#include "catalogue/CatalogueSend.h"
#include "catalogue/CatalogueVerify.h"
#include "catalogue/SendQuestion.h"
#include "catalogue/Sendable.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"

namespace zek {
namespace {

// One read, from the controller or from the local copy.
class Reading {
 public:
  Reading(const CatalogueId& id, CopyUse use, const CatalogueParts& parts)
      : id_(id), use_(use), p_(parts) {}

  std::optional<CatalogueContent> Run() {
    if (id_.localFile.empty()) {
      p_.messages.Tell(Icon::Information, text::kNoSuchCatalogue);
      return std::nullopt;
    }
    const bool exists = p_.copies.Exists(id_);
    if (exists && MayUseCopy()) return p_.copies.Load(id_);
    if (!p_.settings.LocalMode) return FetchAndStore();
    RefuseLocalMode(exists);
    return std::nullopt;
  }

 private:
  bool MayUseCopy() const {
    if (use_ != CopyUse::AsSet) return use_ == CopyUse::Take;
    if (p_.settings.AlwaysUseDSS) return false;
    if (p_.settings.AlwaysUseLocal) return true;
    return p_.messages.prompts.AskYesNo(
        Icon::Question,
        p_.messages.Text(text::kUseLocalCopy) + " (" + UpperCase(id_.localFile) + ").",
        p_.messages.Text(text::kUseLocalCopyTitle));
  }

  void RefuseLocalMode(bool copyExists) const {
    if (copyExists) {
      p_.messages.Tell(Icon::Information, text::kLocalCopyDeclined);
    } else {
      p_.messages.prompts.Show(Icon::Information, p_.messages.Text(text::kNoLocalCopy) +
                                                      "\r\n\r\n" +
                                                      p_.messages.Text(text::kNoLocalCopyAdvice));
    }
  }

  std::optional<CatalogueContent> FetchAndStore() {
    const std::optional<FetchDelays> delays = ReadFetchDelays(p_.numbers);
    if (!delays || !CheckNameSendable(id_, p_)) return std::nullopt;
    const CountedUp busy(p_.exchange.status, &StatusPanels::Busy);
    const Fetched fetched = FetchCatalogue(id_, p_, *delays, text::kFetching);
    if (fetched.outcome == FetchOutcome::Failed) {
      p_.messages.Tell(Icon::Exclamation, text::kNoAnswer);
    }
    if (fetched.outcome != FetchOutcome::Complete) return std::nullopt;
    const CatalogueContent& content = fetched.content;
    if (!p_.copies.Store(id_, content.lines, content.dfv)) return std::nullopt;
    if (content.linesDropped > 0) {
      p_.messages.Tell(Icon::Exclamation, text::kListingTooLong,
                       {std::to_string(kMaxCatalogueLines), std::to_string(content.linesDropped)});
    }
    return content;
  }

  const CatalogueId& id_;
  CopyUse use_;
  const CatalogueParts& p_;
};

// One save: store, ask, send, compare.
class Saving {
 public:
  /// `last` is the catalogue as it was last read.
  Saving(const CatalogueId& id, CatalogueDraft draft, CatalogueContent last,
         const CatalogueParts& parts)
      : id_(id), draft_(std::move(draft)), last_(std::move(last)), p_(parts) {
    draft_.dfv = DfvToSend();
  }

  bool Run() {
    if (!p_.copies.Store(id_, draft_.lines, DfvToStore())) return false;
    if (p_.settings.LocalMode) {
      p_.messages.prompts.Show(Icon::Information,
                               WithFile(text::kSavedLocally, text::kSavedLocallyFile));
      return true;
    }
    // Content that can't be sent and unusable pauses are reported before anything is sent.
    return Ask() && CheckSendDelays(p_.numbers) && CheckSendable(id_, draft_, p_) &&
           (p_.settings.VerifyAfterWrite ? SendAndVerify() : SendOnly());
  }

  /// What the controller has now, if this save changed it.
  const std::optional<CatalogueContent>& Known() const { return known_; }

 private:
  // A weekday catalogue is always sent with a value, an exception catalogue only if it is known.
  std::optional<std::string> DfvToSend() const {
    if (!id_.IsOfControl()) return std::nullopt;
    return id_.catalogue == Catalogue::Wdc ? draft_.dfv.value_or(".") : draft_.dfv;
  }

  // The local copy of exceptions has no value, because the controller's value may have changed when
  // the copy is sent.
  std::optional<std::string> DfvToStore() const {
    return id_.catalogue == Catalogue::Wdc ? draft_.dfv : std::nullopt;
  }

  std::string WithFile(std::int32_t first, std::int32_t second) const {
    return p_.messages.Text(first) + "\r\n\r\n" + p_.messages.Text(second) + " '" + id_.localFile +
           "'";
  }

  bool Ask() const {
    return AskSend(WithFile(text::kAskSend, text::kAskSendFile), last_, draft_,
                   RulesOf(id_, p_.settings), p_.messages);
  }

  bool Send() {
    const SendOutcome outcome = SendCatalogue(id_, draft_, p_);
    if (outcome == SendOutcome::Failed) known_.emplace();  // unknown
    if (outcome == SendOutcome::Sent)
      known_ = CatalogueContent{draft_.lines, draft_.dfv, LinesFrom::Controller, 0};
    return outcome == SendOutcome::Sent;
  }

  bool SendOnly() {
    const bool sent = Send();
    if (sent) p_.messages.Tell(Icon::Information, text::kSendDone);
    if (!sent) p_.messages.Tell(Icon::Exclamation, text::kSendFailed);
    return sent;
  }

  bool SendAndVerify() {
    const std::optional<FetchDelays> delays = ReadFetchDelays(p_.numbers);
    if (!delays) return false;
    std::optional<Verification> verification;
    {
      const CountedUp busy(p_.exchange.status, &StatusPanels::Busy);  // no gap between the two
      if (Send()) verification = VerifyCatalogue(id_, draft_, p_, *delays);
    }
    if (!verification) {
      p_.messages.Tell(Icon::Exclamation, text::kSendFailed);
      return false;
    }
    known_ = verification->fetched;
    return TellVerification(*verification, p_.messages);
  }

  const CatalogueId& id_;
  CatalogueDraft draft_;
  CatalogueContent last_;
  const CatalogueParts& p_;
  std::optional<CatalogueContent> known_;
};

}  // namespace

std::optional<CatalogueContent> Catalogues::GetCatalogue(const CatalogueId& id, CopyUse use) {
  // During the wait of another transfer, a read would replace that transfer's lines.
  if (p_.exchange.status.Busy > 0) return std::nullopt;
  std::optional<CatalogueContent> content = Reading(id, use, p_).Run();
  if (content) Remember(id, *content);
  return content;
}

bool Catalogues::SaveCatalogue(const CatalogueId& id, CatalogueDraft draft) {
  // Refuse a save during the wait of another transfer.
  if (p_.exchange.status.Busy > 0 || id.localFile.empty()) return false;
  Saving saving(id, std::move(draft), LastKnown(id), p_);
  const bool saved = saving.Run();
  if (saving.Known()) Remember(id, *saving.Known());
  return saved;
}

CatalogueContent Catalogues::LastKnown(const CatalogueId& id) const {
  const bool same = last_.id.object == id.object && last_.id.localFile == id.localFile;
  return same ? last_.content : CatalogueContent();
}

}  // namespace zek
