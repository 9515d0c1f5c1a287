#pragma once

#include <string>

namespace zek {

enum class Icon { None, Information, Exclamation, Critical, Question };

/// Message boxes. A box runs events while it waits for its answer: settle all state before.
/// Texts are windows-1252; an empty caption stands for the program's name.
class Prompts {
 public:
  virtual ~Prompts() = default;
  virtual void Show(Icon icon, const std::string& message, const std::string& caption) = 0;
  virtual bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) = 0;

  void Show(Icon icon, const std::string& message) { Show(icon, message, {}); }
};

}  // namespace zek
