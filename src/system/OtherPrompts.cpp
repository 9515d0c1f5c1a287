#include "system/OtherPrompts.h"

#include "text/Lines.h"

namespace zek {

void UnattendedPrompts::Show(Icon icon, const std::string& message,
                             const std::string& /*caption*/) {
  Tell(icon, message, {});
}

bool UnattendedPrompts::AskYesNo(Icon /*icon*/, const std::string& question,
                                 const std::string& /*caption*/, DefaultAnswer /*standard*/) {
  return AnswerTo(question, {});
}

Answer UnattendedPrompts::AskThree(Icon /*icon*/, const std::string& question,
                                   const std::string& /*caption*/,
                                   const AnswerCaptions& /*captions*/) {
  return AnswerTo(question, {}) ? Answer::Yes : Answer::No;
}

void UnattendedPrompts::ShowDetails(Icon icon, const std::string& message,
                                    const std::string& /*caption*/, const PromptDetails& details) {
  Tell(icon, message, details.lines);
}

bool UnattendedPrompts::AskWithDetails(Icon /*icon*/, const std::string& question,
                                       const std::string& /*caption*/, const PromptDetails& details,
                                       DefaultAnswer /*standard*/) {
  return AnswerTo(question, details.lines);
}

void LogPrompts::Tell(Icon /*icon*/, const std::string& message, const std::string& /*details*/) {
  log_(OnOneLine(message));
}

bool LogPrompts::AnswerTo(const std::string& question, const std::string& /*details*/) {
  log_(OnOneLine(question));
  return false;
}

}  // namespace zek
