#include "catalogue/BatchReport.h"

#include "lang/Message.h"
#include "lang/TextNumbers.h"
#include "text/Windows1252.h"

namespace zek {

std::string BatchReport::Headline(const LanguageTexts& texts) const {
  std::int32_t number = Succeeded() ? text::kBatchAllDone : text::kBatchSomeDone;
  if (planned == 0) number = text::kBatchNothing;
  if (stopped) number = text::kBatchStopped;
  return Message(texts.Text(number), {std::to_string(exported), std::to_string(planned),
                                      std::to_string(failures.size())});
}

std::vector<std::string> BatchReport::Details(const LanguageTexts& texts) const {
  std::vector<std::string> lines = fileErrors;
  for (const BatchFailure& failure : failures) lines.push_back(failure.Line());
  lines.push_back(texts.Text(files.empty() ? text::kBatchNoFiles : text::kBatchFiles));
  for (const std::string& file : files) lines.push_back("  " + Windows1252FromUtf8(file));
  return lines;
}

}  // namespace zek
