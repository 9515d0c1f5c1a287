#include "editors/SaveWithRetry.h"

#include "lang/Message.h"
#include "lang/TextNumbers.h"

namespace zek {
namespace {

bool MayLose(std::size_t lines, Prompts& prompts, const LanguageTexts& texts) {
  if (lines == 0) return true;
  const std::string question = Message(texts.Text(text::kLinesLost), {std::to_string(lines)});
  return prompts.AskYesNo(Icon::Exclamation, question, texts.Text(text::kLinesLostTitle));
}

}  // namespace

SaveOutcome SaveWithRetry(const BuiltLines& built, std::size_t linesLost,
                          const CatalogueWriter& writer, RetryTexts retry, Prompts& prompts,
                          const LanguageTexts& texts) {
  if (const auto* error = std::get_if<BuildError>(&built)) {
    prompts.Show(Icon::Exclamation, error->MessageIn(texts));
    return SaveOutcome::NotTried;
  }
  if (!MayLose(linesLost, prompts, texts)) return SaveOutcome::NotTried;
  const auto& lines = std::get<std::vector<std::string>>(built);
  while (!writer(lines)) {
    const bool again =
        prompts.AskYesNo(Icon::Question, texts.Text(retry.question), texts.Text(retry.title));
    if (!again) return SaveOutcome::GivenUp;
  }
  return SaveOutcome::Written;
}

}  // namespace zek
