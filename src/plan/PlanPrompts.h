#pragma once

#include <string>
#include <utility>

#include "system/OtherPrompts.h"

namespace zek {

/// Message boxes while a plan runs on a topic: questions are answered Yes, and warnings are kept.
class PlanPrompts final : public UnattendedPrompts {
 public:
  explicit PlanPrompts(std::string topicName) : topicName_(std::move(topicName)) {}

  /// The messages with the exclamation icon or a worse one, without the topic, on one line of at
  /// most 400 characters.
  const std::string& Trouble() const { return trouble_; }

 private:
  void Tell(Icon icon, const std::string& message, const std::string& details) override;
  bool AnswerTo(const std::string& /*question*/, const std::string& /*details*/) override {
    return true;
  }

  std::string topicName_;
  std::string trouble_;
};

}  // namespace zek
