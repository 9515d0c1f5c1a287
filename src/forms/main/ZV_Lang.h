#pragma once

#include <vector>

#include <wx/choice.h>
#include <wx/dialog.h>

#include "app/ZV_Proc.h"

namespace zek {

/// `ZV_Lang`: offers the languages whose files are in the program directory, and writes the chosen
/// one to the settings file. Shown modally; `LoadLanguage` reads the setting afterwards.
class ZV_Lang final : public wxDialog {
 public:
  explicit ZV_Lang(ZV_Proc& proc);

 private:
  void Build();
  void OnOk();

  ZV_Proc& proc_;
  std::vector<LanguageChoice> choices_;
  wxChoice* Combo_Language = nullptr;
};

}  // namespace zek
