#pragma once

#include <string>

namespace zek {

enum class Icon { None, Information, Exclamation, Critical, Question };

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
  virtual bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) = 0;

  /// The same with details. Implementations without room for details show only the message, which
  /// must therefore contain the most important facts.
  virtual void ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                           const PromptDetails& /*details*/) {
    Show(icon, message, caption);
  }
  virtual bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                              const PromptDetails& /*details*/) {
    return AskYesNo(icon, question, caption);
  }

  void Show(Icon icon, const std::string& message) { Show(icon, message, {}); }
};

}  // namespace zek
