#pragma once

#include <string>

namespace zek {

enum class Icon { None, Information, Exclamation, Critical, Question };

/// Lines that belong to a message and are too many for it, below a label ("&" before its letter).
struct PromptDetails {
  std::string label;
  std::string lines;  // ended by CR LF
};

/// Message boxes. A box runs events while it waits for its answer: settle all state before.
/// Texts are windows-1252; an empty caption stands for the program's name.
class Prompts {
 public:
  virtual ~Prompts() = default;
  virtual void Show(Icon icon, const std::string& message, const std::string& caption) = 0;
  virtual bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) = 0;

  /// The same with details. Where there is no room for them, the message says the most important.
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
