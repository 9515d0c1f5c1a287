#include "system/OtherPrompts.h"

#include "text/Lines.h"

namespace zek {

void LogPrompts::Show(Icon /*icon*/, const std::string& message, const std::string& /*caption*/) {
  log_(OnOneLine(message));
}

bool LogPrompts::AskYesNo(Icon /*icon*/, const std::string& question,
                          const std::string& /*caption*/, DefaultAnswer /*standard*/) {
  log_(OnOneLine(question));
  return false;
}

Answer LogPrompts::AskThree(Icon /*icon*/, const std::string& question,
                            const std::string& /*caption*/, const AnswerCaptions& /*captions*/) {
  log_(OnOneLine(question));
  return Answer::No;
}

}  // namespace zek
