#pragma once

#include <string>

#include "system/OtherPrompts.h"

namespace zek {

/// Message boxes while a plan runs: questions are answered Yes, and warnings are kept.
class PlanPrompts final : public UnattendedPrompts {
 public:
  /// The messages with the exclamation icon or a worse one, on one line of at most 400 characters.
  const std::string& Trouble() const { return trouble_; }

 private:
  void Tell(Icon icon, const std::string& message, const std::string& details) override;
  bool AnswerTo(const std::string& /*question*/, const std::string& /*details*/) override {
    return true;
  }

  std::string trouble_;
};

}  // namespace zek
