#pragma once

#include <wx/window.h>

#include "lang/LanguageTexts.h"
#include "system/Prompts.h"

namespace zek {

/// Message boxes of the window system, above the window that is active.
class WxPrompts final : public Prompts {
 public:
  /// The language of the buttons; until it is told they are in the system's own.
  void Speak(const LanguageTexts& texts) { texts_ = &texts; }

  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) override;
  void ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                   const PromptDetails& details) override;
  bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                      const PromptDetails& details) override;

 private:
  int Ask(long style, const std::string& message, const std::string& caption) const;
  int AskDetails(long style, const std::string& message, const std::string& caption,
                 const PromptDetails& details) const;

  const LanguageTexts* texts_ = nullptr;
};

}  // namespace zek
