#pragma once

#include <ostream>
#include <string>
#include <string_view>

#include "system/Prompts.h"

namespace zek::cli {

/// Prints messages on standard error (UTF-8), each on one line, details after a message and before
/// a question. The caller sets the answer to all questions in advance, Yes or No.
class CliPrompts final : public Prompts {
 public:
  explicit CliPrompts(std::ostream& err) : err_(err) {}

  bool answerYes = false;  // the answer to every question
  int asked = 0;           // number of questions so far

  using Prompts::AskWithDetails;
  using Prompts::AskYesNo;
  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption,
                DefaultAnswer standard) override;
  Answer AskThree(Icon icon, const std::string& question, const std::string& caption,
                  const AnswerCaptions& captions) override;
  void ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                   const PromptDetails& details) override;
  bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                      const PromptDetails& details, DefaultAnswer standard) override;

  bool Attended() const override { return false; }

 private:
  void Print(std::string_view lines);

  std::ostream& err_;
};

}  // namespace zek::cli
