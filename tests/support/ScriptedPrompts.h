#pragma once

#include <deque>
#include <string>
#include <vector>

#include "system/Prompts.h"

namespace zek::test {

/// An answer prepared for a question. True is Yes.
struct PreparedAnswer {
  PreparedAnswer(bool yes) : answer(yes ? Answer::Yes : Answer::No) {}
  PreparedAnswer(Answer prepared) : answer(prepared) {}
  Answer answer;
};

/// Message boxes with prepared answers. `shown` contains the messages, each after the letter of its
/// icon (n i x c q) and, for questions, "?" and the default button if the icon does not imply it
/// (y n); `details` contains the details below each message.
class ScriptedPrompts final : public Prompts {
 public:
  std::vector<std::string> shown;
  std::vector<std::string> details;
  // To the questions in order. When all are used, No or, with three answers, Cancel.
  std::deque<PreparedAnswer> answers;

  using Prompts::AskWithDetails;
  using Prompts::AskYesNo;
  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& /*caption*/) override {
    shown.push_back(std::string(1, Letter(icon)) + " " + message);
  }

  bool AskYesNo(Icon icon, const std::string& question, const std::string& /*caption*/,
                DefaultAnswer standard) override {
    const char* const button = standard == DefaultFor(icon)     ? "? "
                               : standard == DefaultAnswer::Yes ? "?y "
                                                                : "?n ";
    shown.push_back(Letter(icon) + (button + question));
    return Next(Answer::No) == Answer::Yes;
  }

  Answer AskThree(Icon icon, const std::string& question, const std::string& /*caption*/,
                  const AnswerCaptions& /*captions*/) override {
    shown.push_back(Letter(icon) + ("? " + question));
    return Next(Answer::No);
  }

  void ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                   const PromptDetails& below) override {
    details.push_back(below.lines);
    Show(icon, message, caption);
  }

  bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                      const PromptDetails& below, DefaultAnswer standard) override {
    details.push_back(below.lines);
    return AskYesNo(icon, question, caption, standard);
  }

 private:
  Answer Next(Answer otherwise) {
    if (answers.empty()) return otherwise;
    const Answer answer = answers.front().answer;
    answers.pop_front();
    return answer;
  }
  static char Letter(Icon icon) { return "nixcq"[static_cast<int>(icon)]; }
};

}  // namespace zek::test
