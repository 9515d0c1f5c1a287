#pragma once

#include <string>

namespace zek {

enum class Icon { None, Information, Exclamation, Critical, Question };

enum class Answer { Yes, No, Cancel };

/// The answer of the button that Enter presses.
enum class DefaultAnswer { Yes, No };

/// Warnings default to No, so that repeated Enter never confirms one.
constexpr DefaultAnswer DefaultFor(Icon icon) {
  return icon == Icon::Exclamation ? DefaultAnswer::No : DefaultAnswer::Yes;
}

/// The buttons of a question with three answers.
struct AnswerCaptions {
  std::string yes;
  std::string no;
  std::string cancel;
};

/// Lines that do not fit in the message, shown below a label ("&" marks its access key).
struct PromptDetails {
  std::string label;
  std::string lines;  // each ends in CR LF
};

/// Message boxes. A box handles events while it waits for its answer: complete all changes of state
/// before the call. Texts are windows-1252; an empty caption means the program's name.
class Prompts {
 public:
  virtual ~Prompts() = default;
  virtual void Show(Icon icon, const std::string& message, const std::string& caption) = 0;
  /// Escape and closing the box mean No.
  virtual bool AskYesNo(Icon icon, const std::string& question, const std::string& caption,
                        DefaultAnswer standard) = 0;
  /// Escape and closing the box mean Cancel. Nobody at the screen (a script, a scheduled export)
  /// means Yes or No, never Cancel.
  virtual Answer AskThree(Icon icon, const std::string& question, const std::string& caption,
                          const AnswerCaptions& captions) = 0;

  /// The same with details. Implementations without room for details show only the message, which
  /// must therefore contain the most important facts.
  virtual void ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                           const PromptDetails& /*details*/) {
    Show(icon, message, caption);
  }
  virtual bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                              const PromptDetails& /*details*/, DefaultAnswer standard) {
    return AskYesNo(icon, question, caption, standard);
  }

  /// False if nobody is at the screen, so that a question gets a fixed answer.
  virtual bool Attended() const { return true; }

  void Show(Icon icon, const std::string& message) { Show(icon, message, {}); }
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) {
    return AskYesNo(icon, question, caption, DefaultFor(icon));
  }
  bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                      const PromptDetails& details) {
    return AskWithDetails(icon, question, caption, details, DefaultFor(icon));
  }
};

}  // namespace zek
