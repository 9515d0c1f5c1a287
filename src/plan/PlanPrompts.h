#pragma once

#include <string>

#include "system/OtherPrompts.h"

namespace zek {

/// Message boxes of a plan: questions are answered Yes, and what is told is kept.
class PlanPrompts final : public UnattendedPrompts {
 public:
  /// What was told with the exclamation icon or a worse one, on one line.
  const std::string& Trouble() const { return trouble_; }

 private:
  void Tell(Icon icon, const std::string& message, const std::string& details) override;
  bool AnswerTo(const std::string& /*question*/, const std::string& /*details*/) override {
    return true;
  }

  std::string trouble_;
};

}  // namespace zek
