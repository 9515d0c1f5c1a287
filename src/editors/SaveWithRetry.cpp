#include "editors/SaveWithRetry.h"

#include "lang/TextNumbers.h"

namespace zek {
namespace {

bool MayLose(std::size_t lines, const Messages& messages) {
  if (lines == 0) return true;
  return messages.prompts.AskYesNo(Icon::Exclamation,
                                   messages.Text(text::kLinesLost, {std::to_string(lines)}),
                                   messages.Text(text::kLinesLostTitle));
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
  while (!writer(lines)) {
    const bool again = messages.prompts.AskYesNo(
        Icon::Question, messages.Text(edited.retry.question), messages.Text(edited.retry.title));
    if (!again) return SaveOutcome::GivenUp;
  }
  return SaveOutcome::Written;
}

}  // namespace zek
