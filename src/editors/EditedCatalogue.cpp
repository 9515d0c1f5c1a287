#include "editors/EditedCatalogue.h"

#include "lang/TextNumbers.h"

namespace zek {
namespace {

bool MayLose(std::size_t lines, const Messages& messages) {
  if (lines == 0) return true;
  return messages.prompts.AskYesNo(Icon::Exclamation,
                                   messages.Text(text::kLinesLost, {std::to_string(lines)}),
                                   messages.Text(text::kLinesLostTitle));
}

// Who declined has answered already, so No is the default then.
bool AskRetry(const RetryTexts& texts, SaveResult::Outcome outcome, const Messages& messages) {
  const bool declined = outcome == SaveResult::Outcome::Declined;
  return messages.prompts.AskYesNo(Icon::Question, messages.Text(texts.question),
                                   messages.Text(texts.title),
                                   declined ? DefaultAnswer::No : DefaultAnswer::Yes);
}

}  // namespace

SaveOutcome SaveWithRetry(const EditedCatalogue& edited, const CatalogueWriter& writer,
                          const Messages& messages) {
  if (const auto* error = std::get_if<BuildError>(&edited.lines)) {
    messages.prompts.Show(Icon::Exclamation, error->MessageIn(messages.texts));
    return SaveOutcome::NotTried;
  }
  if (!MayLose(edited.linesLost, messages)) return SaveOutcome::NotTried;
  const auto& lines = std::get<std::vector<std::string>>(edited.lines);
  while (true) {
    const SaveResult result = writer(lines);
    switch (result.outcome) {
      case SaveResult::Outcome::Saved:
      case SaveResult::Outcome::Remarked:
        return SaveOutcome::Written;
      case SaveResult::Outcome::Refused:
        return result.stored ? SaveOutcome::Refused : SaveOutcome::NotTried;
      case SaveResult::Outcome::Declined:
      case SaveResult::Outcome::Failed:
        if (!AskRetry(edited.retry, result.outcome, messages))
          return result.stored ? SaveOutcome::GivenUp : SaveOutcome::NotStored;
    }
  }
}

}  // namespace zek
