#include "commands/CliPrompts.h"

#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek::cli {

void CliPrompts::Tell(Icon /*icon*/, const std::string& message, const std::string& details) {
  err_ << Utf8FromWindows1252(OnOneLine(message)) << '\n';
  Print(details);
  err_ << std::flush;
}

bool CliPrompts::AnswerTo(const std::string& question, const std::string& details) {
  Print(details);
  ++asked;
  err_ << Utf8FromWindows1252(OnOneLine(question)) << (answerYes ? " [yes]" : " [no]") << '\n'
       << std::flush;
  return answerYes;
}

void CliPrompts::Print(std::string_view lines) {
  while (!lines.empty()) err_ << Utf8FromWindows1252(TakeLine(lines)) << '\n';
}

}  // namespace zek::cli
