#pragma once

#include <functional>
#include <string>

#include "system/Prompts.h"

namespace zek {

/// Message boxes where nobody sits: each becomes one line for `log`, and every question is
/// answered No.
class LogPrompts final : public Prompts {
 public:
  using Log = std::function<void(const std::string& line)>;
  explicit LogPrompts(Log log) : log_(std::move(log)) {}

  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) override;

 private:
  Log log_;
};

}  // namespace zek
