#pragma once

#include <cstdint>
#include <string>

#include <wx/string.h>

#include "lang/LanguageTexts.h"
#include "system/Prompts.h"

namespace zek {

/// Shows message boxes above the form that was opened last.
class WxPrompts final : public Prompts {
 public:
  /// Sets the language of the Yes and No buttons. Before this call they use the system's language.
  void Speak(const LanguageTexts& texts) { texts_ = &texts; }

  using Prompts::AskWithDetails;
  using Prompts::AskYesNo;
  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption,
                DefaultAnswer standard) override;
  Answer AskThree(Icon icon, const std::string& question, const std::string& caption,
                  const AnswerCaptions& captions) override;
  void ShowDetails(Icon icon, const std::string& message, const std::string& caption,
                   const PromptDetails& details) override;
  bool AskWithDetails(Icon icon, const std::string& question, const std::string& caption,
                      const PromptDetails& details, DefaultAnswer standard) override;

 private:
  wxString Label(std::int32_t number) const;

  const LanguageTexts* texts_ = nullptr;
};

}  // namespace zek
