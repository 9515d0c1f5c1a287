#pragma once

#include <ostream>

#include "app/Prompts.h"

namespace zek::cli {

/// Message boxes as lines of standard error (UTF-8); questions have one answer, set beforehand.
class CliPrompts final : public Prompts {
 public:
  explicit CliPrompts(std::ostream& err) : err_(err) {}

  bool answerYes = false;  // to every question
  int asked = 0;           // questions so far

  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) override;

 private:
  std::ostream& err_;
};

}  // namespace zek::cli
