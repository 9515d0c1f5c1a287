#include "catalogue/Catalogues.h"

#include <utility>

#include "catalogue/CatalogueFetch.h"
#include "catalogue/CatalogueSave.h"
#include "catalogue/LineChanges.h"
#include "catalogue/Sendable.h"
#include "catalogue/SharedCatalogue.h"
#include "lang/TextNumbers.h"
#include "text/Fields.h"
#include "text/Windows1252.h"

namespace zek {
namespace {

bool HasUnsent(const CatalogueId& id, const CatalogueParts& parts) {
  if (!parts.copies.Exists(id)) return false;
  const auto known = parts.records.Known(id);
  return known ? !HaveSameLines(parts.copies.Peek(id), known->content)
               : parts.records.AnySendingFailed(id);
}

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
    switch (exists ? WhereFrom() : Answer::No) {
      case Answer::Yes:
        return p_.copies.Load(id_);
      case Answer::Cancel:
        return std::nullopt;
      case Answer::No:
        break;
    }
    if (!p_.settings.LocalMode && use_ != CopyUse::Take) return FetchAndStore();
    RefuseLocalMode(exists);
    return std::nullopt;
  }

 private:
  // Yes is the local copy, No the controller.
  Answer WhereFrom() const {
    if (use_ != CopyUse::AsSet) return use_ == CopyUse::Take ? Answer::Yes : Answer::No;
    if (p_.settings.AlwaysUseDSS) return Answer::No;
    if (p_.settings.AlwaysUseLocal && HasOwnLines()) return Answer::Yes;
    const auto known = p_.records.Known(id_);
    const std::string question =
        p_.messages.Text(p_.settings.LocalMode ? text::kUseLocalCopyOnly : text::kUseLocalCopy,
                         {known ? known->time : p_.messages.Text(text::kUnknownTime)}) +
        " (" + UpperCase(id_.localFile) + ").";
    const std::string title = p_.messages.Text(text::kUseLocalCopyTitle);
    if (p_.settings.LocalMode) {
      return p_.messages.prompts.AskYesNo(Icon::Question, question, title) ? Answer::Yes
                                                                           : Answer::No;
    }
    return p_.messages.prompts.AskThree(
        Icon::Question, question, title,
        {p_.messages.Text(text::kOpenCopy), p_.messages.Text(text::kFetchInstead),
         p_.messages.Text(text::kCancelTransfer)});
  }

  // A shared copy that was made for another control says nothing about this one.
  bool HasOwnLines() const {
    return !id_.IsPartOfShared() || !SplitLines(id_, p_.copies.Peek(id_).lines).own.empty();
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
    TellFetchFailure(fetched, id_, p_);
    if (fetched.outcome != FetchOutcome::Complete) return std::nullopt;
    std::optional<CatalogueContent> content =
        id_.IsShared() ? MendUnfinished(id_, fetched.content, p_) : fetched.content;
    if (!content) return std::nullopt;
    Keep(*content);
    if (content->linesDropped > 0) {
      p_.messages.Tell(Icon::Exclamation, text::kListingTooLong,
                       {std::to_string(kMaxCatalogueLines), std::to_string(content->linesDropped)});
    }
    return content;
  }

  // Stores the listing. What can't be stored can still be shown, so a failure only gives a message.
  void Keep(CatalogueContent& content) {
    content.replacesUnsent = HasUnsent(id_, p_);
    if (content.replacesUnsent && !MayReplaceUnsent()) {
      content.replacesUnsent = false;
    } else {
      const auto value = id_.IsOfControl() ? std::optional(content.dfv.value_or(".")) : content.dfv;
      // After the message about the file: what to do about it.
      if (!p_.copies.Store(id_, content.lines, value)) {
        p_.messages.Tell(Icon::Information, text::kNothingKept,
                         {Windows1252FromUtf8(p_.settings.ProgramPath)});
      } else {
        content.kept = true;
      }
    }
    // A listing that was cut is not what the controller has.
    if (content.linesDropped == 0) p_.records.RememberKnown(id_, content);
  }

  bool MayReplaceUnsent() const {
    if (p_.settings.ViewOnly) {
      p_.messages.Tell(Icon::Information, text::kUnsentNotReplaced);
      return false;
    }
    // Without a user the history keeps the old copy, and the caller reports it.
    if (!p_.messages.prompts.Attended()) return true;
    return p_.messages.prompts.AskYesNo(Icon::Exclamation,
                                        p_.messages.Text(text::kAskReplaceUnsent),
                                        p_.messages.Text(text::kUseLocalCopyTitle));
  }

  const CatalogueId& id_;
  CopyUse use_;
  const CatalogueParts& p_;
};

}  // namespace

std::string CatalogueParts::About(const CatalogueId& id, std::string message) const {
  const std::string controller = exchange.connection.Describe(id.object);
  if (message.find(controller) == std::string::npos) message += "\r\n" + controller;
  return message;
}

std::optional<CatalogueContent> Catalogues::GetCatalogue(const CatalogueId& id, CopyUse use) {
  // During the wait of another transfer, a read would replace that transfer's lines.
  if (p_.exchange.status.Busy > 0) return std::nullopt;
  return Reading(id, use, p_).Run();
}

std::optional<CatalogueContent> Catalogues::Look(const CatalogueId& id) {
  const std::optional<FetchDelays> delays = ReadFetchDelays(p_.numbers);
  if (p_.exchange.status.Busy > 0 || !delays || !CheckNameSendable(id, p_)) return std::nullopt;
  Fetched fetched = FetchCatalogue(id, p_, *delays, text::kFetching);
  TellFetchFailure(fetched, id, p_);
  if (fetched.outcome != FetchOutcome::Complete) return std::nullopt;
  return std::move(fetched.content);
}

SaveResult Catalogues::SaveCatalogue(const CatalogueId& id, const CatalogueDraft& draft) {
  // Refuse a save during the wait of another transfer.
  if (p_.exchange.status.Busy > 0 || id.localFile.empty()) return {};
  return SaveTheCatalogue(id, draft, p_);
}

SaveResult Catalogues::SendBack(const CatalogueId& id) {
  const auto before = p_.records.BeforeSending(id);
  if (!before || !GetCatalogue(id, CopyUse::PassOver)) return {};
  // The user kept them, or they can't be replaced.
  if (HasUnsentChanges(id)) return {SaveResult::Outcome::Declined, false, {}};
  return SaveCatalogue(id, {WithoutStarred(before->content.lines), before->content.dfv, {}});
}

std::string Catalogues::TimeOfBefore(const CatalogueId& id) const {
  const auto before = p_.records.BeforeSending(id);
  return before ? before->time : std::string();
}

CatalogueContent Catalogues::LastKnown(const CatalogueId& id) const {
  auto known = p_.records.Known(id);
  return known ? std::move(known->content) : CatalogueContent();
}

bool Catalogues::HasUnsentChanges(const CatalogueId& id) const { return HasUnsent(id, p_); }

}  // namespace zek
