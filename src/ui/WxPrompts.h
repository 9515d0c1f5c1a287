#pragma once

#include <wx/window.h>

#include "app/Prompts.h"

namespace zek {

/// Message boxes of the window system, above the window that is active.
class WxPrompts final : public Prompts {
 public:
  using Prompts::Show;
  void Show(Icon icon, const std::string& message, const std::string& caption) override;
  bool AskYesNo(Icon icon, const std::string& question, const std::string& caption) override;
};

}  // namespace zek
