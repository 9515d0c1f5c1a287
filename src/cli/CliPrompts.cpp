#include "cli/CliPrompts.h"

#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek::cli {
void CliPrompts::Show(Icon /*icon*/, const std::string& message, const std::string& /*caption*/) {
  err_ << Utf8FromWindows1252(OnOneLine(message)) << '\n' << std::flush;
}

bool CliPrompts::AskYesNo(Icon /*icon*/, const std::string& question,
                          const std::string& /*caption*/) {
  ++asked;
  err_ << Utf8FromWindows1252(OnOneLine(question)) << (answerYes ? " [yes]" : " [no]") << '\n'
       << std::flush;
  return answerYes;
}

}  // namespace zek::cli
