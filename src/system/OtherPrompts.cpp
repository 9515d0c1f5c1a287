#include "system/OtherPrompts.h"

#include "text/Lines.h"

namespace zek {

void LogPrompts::Show(Icon /*icon*/, const std::string& message, const std::string& /*caption*/) {
  log_(OnOneLine(message));
}

bool LogPrompts::AskYesNo(Icon /*icon*/, const std::string& question,
                          const std::string& /*caption*/) {
  log_(OnOneLine(question));
  return false;
}

}  // namespace zek
