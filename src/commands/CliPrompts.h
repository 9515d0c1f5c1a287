#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "system/OtherPrompts.h"

namespace zek::cli {

/// Prints messages on standard error (UTF-8), each on one line, details after a message and before
/// a question. The caller sets the answer to all questions in advance, Yes or No.
class CliPrompts final : public UnattendedPrompts {
 public:
  explicit CliPrompts(std::ostream& err) : err_(err) {}

  bool answerYes = false;  // the answer to every question
  int asked = 0;           // number of questions so far

 private:
  void Tell(Icon icon, const std::string& message, const std::string& details) override;
  bool AnswerTo(const std::string& question, const std::string& details) override;
  void Print(std::string_view lines);

  std::ostream& err_;
};

}  // namespace zek::cli
