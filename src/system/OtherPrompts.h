#pragma once

#include <functional>
#include <string>

#include "system/Prompts.h"

namespace zek {

/// Forwards to the message boxes of a session, or for a while to a replacement.
class PromptSwitch final : public Prompts {
 public:
  explicit PromptSwitch(Prompts& box) : own_(box), target_(&box) {}

  using Prompts::AskWithDetails;
  using Prompts::AskYesNo;
  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override {
    ++shown_;
    target_->Show(icon, message, caption);
  }
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption,
                DefaultAnswer standard) override {
    return target_->AskYesNo(icon, question, caption, standard);
  }
  Answer AskThree(Icon icon, const std::string& question, const std::string& caption,
                  const AnswerCaptions& captions) override {
    return target_->AskThree(icon, question, caption, captions);
  }
  void ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                   const PromptDetails& details) override {
    ++shown_;
    target_->ShowDetails(icon, message, caption, details);
  }
  bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                      const PromptDetails& details, DefaultAnswer standard) override {
    return target_->AskWithDetails(icon, question, caption, details, standard);
  }

  bool Attended() const override { return target_->Attended(); }

  /// The session's own message boxes: what the user must be asked whoever has the others.
  Prompts& Own() const { return own_; }

  /// Returns the number of messages shown so far; questions do not count.
  unsigned Shown() const { return shown_; }

 private:
  friend class PromptsInstead;
  Prompts& own_;
  Prompts* target_;
  unsigned shown_ = 0;
};

/// During its lifetime messages and questions go to `other`.
class PromptsInstead {
 public:
  PromptsInstead(PromptSwitch& prompts, Prompts& other)
      : prompts_(prompts), before_(prompts.target_) {
    prompts_.target_ = &other;
  }
  PromptsInstead(const PromptsInstead&) = delete;
  PromptsInstead& operator=(const PromptsInstead&) = delete;
  ~PromptsInstead() { prompts_.target_ = before_; }

 private:
  PromptSwitch& prompts_;
  Prompts* before_;
};

/// Message boxes with nobody at the screen: messages are told, and questions have an answer in
/// advance.
class UnattendedPrompts : public Prompts {
 public:
  using Prompts::AskWithDetails;
  using Prompts::AskYesNo;
  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) final;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption,
                DefaultAnswer standard) final;
  Answer AskThree(Icon icon, const std::string& question, const std::string& caption,
                  const AnswerCaptions& captions) final;
  void ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                   const PromptDetails& details) final;
  bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                      const PromptDetails& details, DefaultAnswer standard) final;
  bool Attended() const final { return false; }

 protected:
  /// `details` are lines that each end in CR LF, or "".
  virtual void Tell(Icon icon, const std::string& message, const std::string& details) = 0;
  virtual bool AnswerTo(const std::string& question, const std::string& details) = 0;
};

/// Message boxes of an unattended run: each becomes one line for `log`, and every question is
/// answered No.
class LogPrompts final : public UnattendedPrompts {
 public:
  using Log = std::function<void(const std::string& line)>;
  explicit LogPrompts(Log log) : log_(std::move(log)) {}

 private:
  void Tell(Icon icon, const std::string& message, const std::string& details) override;
  bool AnswerTo(const std::string& question, const std::string& details) override;

  Log log_;
};

}  // namespace zek
