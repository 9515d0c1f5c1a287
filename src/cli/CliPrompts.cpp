#include "cli/CliPrompts.h"

#include "text/Controls.h"
#include "text/Lines.h"
#include "text/Windows1252.h"

namespace zek::cli {
namespace {

// One line a message: the blank lines of a message box would only tear it apart.
std::string OnOneLine(std::string_view message) {
  std::string joined;
  while (!message.empty()) {
    std::string line(TakeLine(message));
    if (line.empty()) continue;
    ShowControls(line);
    if (!joined.empty()) joined += ' ';
    joined += line;
  }
  return Utf8FromWindows1252(joined);
}

}  // namespace

void CliPrompts::Show(Icon /*icon*/, const std::string& message, const std::string& /*caption*/) {
  err_ << OnOneLine(message) << '\n' << std::flush;
}

bool CliPrompts::AskYesNo(Icon /*icon*/, const std::string& question,
                          const std::string& /*caption*/) {
  ++asked;
  err_ << OnOneLine(question) << (answerYes ? " [yes]" : " [no]") << '\n' << std::flush;
  return answerYes;
}

}  // namespace zek::cli
