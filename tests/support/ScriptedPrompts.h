#pragma once

#include <deque>
#include <string>
#include <vector>

#include "system/Prompts.h"

namespace zek::test {

/// Message boxes with prepared answers. `shown` contains the messages, each after the letter of its
/// icon (n i x c q) and, for questions, "?"; `details` contains the details below each message.
class ScriptedPrompts final : public Prompts {
 public:
  std::vector<std::string> shown;
  std::vector<std::string> details;
  std::deque<bool> answers;  // to the questions in order; No when all are used

  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& /*caption*/) override {
    shown.push_back(std::string(1, Letter(icon)) + " " + message);
  }

  bool AskYesNo(Icon icon, const std::string& question, const std::string& /*caption*/) override {
    shown.push_back(std::string(1, Letter(icon)) + "? " + question);
    if (answers.empty()) return false;
    const bool answer = answers.front();
    answers.pop_front();
    return answer;
  }

  void ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                   const PromptDetails& below) override {
    details.push_back(below.lines);
    Show(icon, message, caption);
  }

  bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                      const PromptDetails& below) override {
    details.push_back(below.lines);
    return AskYesNo(icon, question, caption);
  }

 private:
  static char Letter(Icon icon) { return "nixcq"[static_cast<int>(icon)]; }
};

}  // namespace zek::test
