#include "export/BatchReport.h"

#include "lang/Messages.h"
#include "lang/TextNumbers.h"
#include "text/Windows1252.h"

namespace zek {

std::string BatchReport::Headline(const LanguageTexts& texts) const {
  std::int32_t number = text::kBatchSomeDone;
  if (exported == planned) number = Succeeded() ? text::kBatchAllDone : text::kBatchFaulty;
  if (planned == 0) number = text::kBatchNothing;
  if (stopped) number = text::kBatchStopped;
  // After a cancel only tried catalogues count as failed. Otherwise all of a lost file do too.
  const std::size_t missing = stopped ? failures.size() : planned - exported;
  return Message(texts.Text(number),
                 {std::to_string(exported), std::to_string(planned), std::to_string(missing)});
}

std::vector<std::string> BatchReport::Failures(const LanguageTexts& texts) const {
  std::vector<std::string> lines = fileErrors;
  if (plantCut) lines.push_back(texts.Text(text::kBatchPlantCut));
  for (const BatchFailure& failure : failures) lines.push_back(failure.Line());
  return lines;
}

std::vector<std::string> BatchReport::Details(const LanguageTexts& texts) const {
  std::vector<std::string> lines = Failures(texts);
  lines.insert(lines.end(), notes.begin(), notes.end());
  lines.push_back(texts.Text(files.empty() ? text::kBatchNoFiles : text::kBatchFiles));
  for (const std::string& file : files) lines.push_back("  " + Windows1252FromUtf8(file));
  return lines;
}

}  // namespace zek
