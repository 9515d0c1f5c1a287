#include "commands/CliPrompts.h"

#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek::cli {
void CliPrompts::Show(Icon /*icon*/, const std::string& message, const std::string& /*caption*/) {
  err_ << Utf8FromWindows1252(OnOneLine(message)) << '\n' << std::flush;
}

bool CliPrompts::AskYesNo(Icon /*icon*/, const std::string& question,
                          const std::string& /*caption*/, DefaultAnswer /*standard*/) {
  ++asked;
  err_ << Utf8FromWindows1252(OnOneLine(question)) << (answerYes ? " [yes]" : " [no]") << '\n'
       << std::flush;
  return answerYes;
}

Answer CliPrompts::AskThree(Icon icon, const std::string& question, const std::string& caption,
                            const AnswerCaptions& /*captions*/) {
  return AskYesNo(icon, question, caption) ? Answer::Yes : Answer::No;
}

void CliPrompts::Print(std::string_view lines) {
  while (!lines.empty()) err_ << Utf8FromWindows1252(TakeLine(lines)) << '\n';
}

void CliPrompts::ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                             const PromptDetails& details) {
  Show(icon, message, caption);
  Print(details.lines);
  err_ << std::flush;
}

bool CliPrompts::AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                                const PromptDetails& details, DefaultAnswer standard) {
  Print(details.lines);
  return AskYesNo(icon, question, caption, standard);
}

}  // namespace zek::cli
